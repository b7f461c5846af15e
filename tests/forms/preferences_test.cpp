#include "gui/controls/preferences.h"

#include "form_tests.h"
#include "program.h"

using namespace pallomir;

class PreferencesTest : public QObject {
  Q_OBJECT

 private slots:
  void ValuesComeBackAsTheyWereWithTheirTypes() {
    const QTemporaryDir folder;
    const std::filesystem::path file = folder.filePath("new/folder/preferences.json").toStdString();
    const QByteArray place("\0\xff\x01 \r\n", 6);
    {
      Preferences written(file);
      written.Set("live", true);
      written.Set("width", 640);
      written.Set("share", 0.25);
      written.Set("font", QString("Großschrift \"9\"\n"));
      written.Set("files", QStringList{"/a b/\u00e9.Ntt.parms", ""});
      written.Set("place", place);
    }
    const Preferences read(file);
    QCOMPARE(read.Get("live", false), true);
    QCOMPARE(read.Get("width", 0), 640);
    QCOMPARE(read.Get("share", 0.0), 0.25);
    QCOMPARE(read.Get<QString>("font"), QString("Großschrift \"9\"\n"));
    QCOMPARE(read.Get<QStringList>("files"), (QStringList{"/a b/\u00e9.Ntt.parms", ""}));
    QCOMPARE(read.Get<QByteArray>("place"), place);
    // A value of another type, and a missing one.
    QCOMPARE(read.Get("share", 7), 7);
    QCOMPARE(read.Get("live", 3), 3);
    QCOMPARE(read.Get("font", true), true);
    QCOMPARE(read.Get<QStringList>("font", {"none"}), QStringList{"none"});
    QCOMPARE(read.Get("height", 480), 480);
  }

  void TwoProgramsKeepEachOthersValues() {
    const QTemporaryDir folder;
    const std::filesystem::path file = folder.filePath("preferences.json").toStdString();
    Preferences one(file), other(file);
    one.Set("a", 1);
    other.Set("b", 2);
    QCOMPARE(one.Get("b", 0), 0);
    one.Reload();
    QCOMPARE(one.Get("b", 0), 2);
    QCOMPARE(Preferences(file).Get("a", 0), 1);
  }

  void ForeignContentCountsAsNothingAndIsSetAside_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("Window=1\n");
    QTest::newRow("cut short") << QByteArray("{\"a\": 1");
    QTest::newRow("array") << QByteArray("[1, 2]");
    QTest::newRow("deep") << QByteArray(200'000, '[');
    QTest::newRow("long") << "{\"a\": \"" + QByteArray(2'000'000, 'x') + "\"}";
    QTest::newRow("empty") << QByteArray();
  }
  void ForeignContentCountsAsNothingAndIsSetAside() {
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath("preferences.json"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    file.close();
    Preferences preferences(file.fileName().toStdString());
    QCOMPARE(preferences.Get("a", 5), 5);
    preferences.Set("b", 2);
    QCOMPARE(Preferences(file.fileName().toStdString()).Get("b", 0), 2);
    const QStringList aside = QDir(folder.path()).entryList({"preferences.2*.json"});
    QCOMPARE(aside.size(), 1);
    QFile kept(folder.filePath(aside.first()));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), content);
  }

  void WhatCannotBeSavedIsStillRemembered() {
    const QTemporaryDir folder;
    QFile(folder.filePath("file")).open(QIODevice::WriteOnly);
    for (const QString& place : {folder.filePath("file/preferences.json"), QString()}) {
      Preferences preferences(place.toStdString());
      preferences.Set("a", 1);
      preferences.Reload();
      QCOMPARE(preferences.Get("a", 0), 1);
    }
    QFile shut(folder.filePath("shut.json"));
    QVERIFY(shut.open(QIODevice::WriteOnly) && shut.write("{}") == 2 && shut.setPermissions(QFile::ReadOwner));
    shut.close();
    Preferences preferences(shut.fileName().toStdString());
    preferences.Set("a", 1);
    QVERIFY(shut.open(QIODevice::ReadOnly));
    QCOMPARE(shut.readAll(), QByteArray("{}"));
  }
};

static const bool added = AddFormTest<PreferencesTest>();

#include "preferences_test.moc"
