// Runs the form tests of all files in one process. A name on the command line picks one class or one function.

#include <QtTest>
#include <QtWidgets>
#include <memory>

#include "form_tests.h"

int main(int argumentCount, char** arguments) {
  QApplication application(argumentCount, arguments);
  const QString wanted = argumentCount > 1 ? QString(arguments[1]) : QString();
  int failures = 0;
  for (const auto& make : pallomir::FormTests()) {
    const std::unique_ptr<QObject> test(make());
    const QMetaObject* meta = test->metaObject();
    const bool whole = wanted.isEmpty() || wanted == meta->className();
    if (!whole && meta->indexOfMethod((wanted + "()").toUtf8()) < 0) continue;
    failures += QTest::qExec(test.get(), whole ? QStringList{"forms_tests"} : QStringList{"forms_tests", wanted});
  }
  return failures;
}
