// SPDX-License-Identifier: MIT
// All windows on screens of different density: one that comes to another screen looks as if it had been
// opened there.
#include "app/Windows.h"
#include "art/ArtResources.h"
#include "support/FakeDesktop.h"
#include "support/FakeScreens.h"
#include "support/TestForm.h"
#include "support/TestMain.h"

#include <functional>
#include <map>

using namespace torvane;

class ScreensTest : public QObject {
    Q_OBJECT

    static constexpr std::array densities = {1.0, 2.0, 1.5, 3.0};

    std::map<QString, std::function<std::unique_ptr<Form>()>> designs;
    FakeDesktop desktop;

    // The window as it is designed, on one of the screens.
    std::unique_ptr<Form> openedOn(const QString& window, int screen) const {
        std::unique_ptr<Form> form = designs.at(window)();
        bringToScreen(*form, screen);
        form->show();
        return form;
    }
    static QImage seen(QWidget& window) {
        [[maybe_unused]] const bool isThere = QTest::qWaitForWindowExposed(&window);
        return imageOf(window);
    }
    void addWays() const {
        QTest::addColumn<QString>("window");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("onto");
        for (const auto& [name, make] : designs) {
            for (const auto& [from, onto] : {std::pair(0, 1), {1, 0}, {1, 2}, {2, 3}}) {
                QTest::addRow("%s, %gx to %gx", qPrintable(name), densities[from], densities[onto])
                    << name << from << onto;
            }
        }
    }

public:
    static void initMain() { useScreens({densities[0], densities[1], densities[2], densities[3]}); }

private slots:
    void initTestCase() {
        initArtResources();
        QApplication::setCursorFlashTime(0);
        Windows::forEach([this]<typename W>() {
            const auto make = [this] { return std::make_unique<typename W::Design>(desktop.runtime); };
            designs[make()->objectName()] = make;
        });
    }

    void a_window_that_comes_to_another_screen_looks_as_if_opened_there_data() { addWays(); }
    void a_window_that_comes_to_another_screen_looks_as_if_opened_there() {
        QFETCH(QString, window);
        QFETCH(int, from);
        QFETCH(int, onto);
        // Letters may differ by a shade when they are drawn for the first time.
        QVERIFY(seen(*openedOn(window, onto)).size() != seen(*openedOn(window, from)).size());
        const QImage wanted = seen(*openedOn(window, onto));
        const auto form = openedOn(window, from);
        seen(*form);
        bringToScreen(*form, onto);
        QVERIFY(seen(*form) == wanted);
    }
};

TORVANE_TEST(ScreensTest)
#include "ScreensTest.moc"
