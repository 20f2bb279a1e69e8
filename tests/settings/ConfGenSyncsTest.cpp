// SPDX-License-Identifier: MIT
// How often the window of the general options makes the disk sync. The calls of this program are counted by
// replacing them.
#include "support/OpenedSettings.h"
#include "support/TestMain.h"

#include <dlfcn.h>

using namespace torvane;
using namespace Qt::StringLiterals;

namespace {
int syncs = 0;

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}
} // namespace

// NOLINTBEGIN: the signatures and the spellings are those of the C library.
#define COUNTED_CALL(name)                                                                                   \
    extern "C" int name(int handle) {                                                                        \
        static const auto real = next<int (*)(int)>(#name);                                                  \
        ++syncs;                                                                                             \
        return real(handle);                                                                                 \
    }
COUNTED_CALL(fsync)
COUNTED_CALL(fdatasync)
extern "C" int syncfs(int handle) noexcept {
    static const auto real = next<int (*)(int)>("syncfs");
    ++syncs;
    return real(handle);
}
extern "C" void sync() noexcept {
    static const auto real = next<void (*)()>("sync");
    ++syncs;
    real();
}
// NOLINTEND

class ConfGenSyncsTest : public OpenedSettings {
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { end(); }

    void opening_with_an_empty_store_takes_at_most_5_syncs() {
        opened->open();
        QVERIFY(QDir(world().folder.path(u"config"_s)).removeRecursively());
        syncs = 0;
        opened->program->load<ConfGen>();
        QVERIFY2(syncs <= 5, qPrintable(QString::number(syncs)));
        QVERIFY(syncs > 0); // they are counted
        QCOMPARE(world().setting("Tray"), u"1"_s);
    }
    void opening_with_the_store_of_the_first_start_takes_two() {
        openPanel();
        syncs = 0;
        clickOptions();
        QCOMPARE(syncs, 2);
    }
    void opening_with_everything_stored_takes_none() {
        openOptions();
        click(window().ChameleonButton3);
        collectGone();
        syncs = 0;
        clickOptions();
        QCOMPARE(syncs, 0);
    }
    void a_click_takes_two_and_one_that_changes_nothing_none() {
        openOptions();
        syncs = 0;
        mark(colour(3));
        QCOMPARE(syncs, 2);
        mark(colour(3));
        QCOMPARE(syncs, 2);
        mark(window().Check3);
        QCOMPARE(syncs, 4);
    }
};

TORVANE_TEST(ConfGenSyncsTest)
#include "ConfGenSyncsTest.moc"
