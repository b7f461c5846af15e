#pragma once

#include <QObject>
#include <functional>
#include <vector>

namespace pallomir {

/// The functions that make this program's test objects; each file adds its own.
inline std::vector<std::function<QObject*()>>& FormTests() {
  static std::vector<std::function<QObject*()>> tests;
  return tests;
}

template <class Test>
bool AddFormTest() {
  FormTests().push_back([] { return new Test; });
  return true;
}

}  // namespace pallomir
