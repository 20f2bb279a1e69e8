// SPDX-License-Identifier: MIT
// The test programs, one per folder. A test class registers itself with one of the three macros; the first
// argument of the program names the class to run, the others are passed to Qt Test.
#pragma once

#include <QApplication>
#include <QtTest>

namespace torvane {

/// A registered test class. Entries live as long as the process and form a linked list.
class TestEntry {
public:
    using Run = int (*)(int argc, char** argv);

    TestEntry(const QMetaObject& testClass, Run function) noexcept
        : m_class(testClass), m_run(function), m_next(s_first) {
        s_first = this;
    }

    /// The entry of a class, by its name without namespaces; null if the program has no such class.
    static const TestEntry* find(QByteArrayView name);
    /// The names of all classes of the program, sorted.
    static QByteArrayList names();
    int run(int argc, char** argv) const { return m_run(argc, argv); }

private:
    QByteArrayView name() const;

    const QMetaObject& m_class;
    Run m_run;
    const TestEntry* m_next;
    inline static const TestEntry* s_first = nullptr;
};

/// Runs a test class as Qt's own main functions do. `initMain` of the class, if it has one, prepares the
/// environment before the application object exists.
template <typename Test, typename Application>
int runTest(int argc, char** argv) {
    QTest::Internal::callInitMain<Test>();
    Application application(argc, argv);
    application.setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

template <typename Test>
int runTestWithoutApplication(int argc, char** argv) {
    QTest::Internal::callInitMain<Test>();
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace torvane

#define TORVANE_TEST_ENTRY(Class, function)                                                                  \
    namespace {                                                                                              \
    const torvane::TestEntry Class##Entry(Class::staticMetaObject, function);                                \
    }

/// Registers a test class, named without namespaces, that needs windows.
#define TORVANE_TEST(Class) TORVANE_TEST_ENTRY(Class, (torvane::runTest<Class, QApplication>))
/// Registers a test class that needs an event loop and no window.
#define TORVANE_GUILESS_TEST(Class) TORVANE_TEST_ENTRY(Class, (torvane::runTest<Class, QCoreApplication>))
/// Registers a test class that needs neither.
#define TORVANE_APPLESS_TEST(Class) TORVANE_TEST_ENTRY(Class, torvane::runTestWithoutApplication<Class>)
