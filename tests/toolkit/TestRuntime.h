// SPDX-License-Identifier: MIT
// A window for the controls under test, on a world that only records what it is asked.
#pragma once

#include "platform/forms/Form.h"

#include <QTemporaryDir>
#include <QtTest>

namespace torvane {

struct TestRuntime {
    struct Messages : MessageBoxes {
        int MsgBox(const QString&, int, const QString&) override { return MsgBoxFlags::answerOk; }
    };
    struct Dialogs : FileDialogs {
        QString showOpen(const FileQuestion&) override { return {}; }
        QString showSave(const FileQuestion&) override { return {}; }
        QString showFolder(const FileQuestion&) override { return {}; }
    };
    struct RecordingBrowser : Browser {
        QStringList urls;
        bool found = true;
        bool open(const QString& url) override {
            urls.append(url);
            return found;
        }
    };
    struct Processes : ProcessRunner {
        bool isProgram(const QByteArray&) override { return false; }
        void runAndWait(const QByteArray&, const QByteArrayList&) override {}
    };

    QTemporaryDir folder;
    Messages messages;
    Dialogs dialogs;
    RecordingBrowser browser;
    Processes processes;
    Settings settings{folder.path()};
    Runtime doors{messages, dialogs, browser, processes, settings, [] {}};
};

/// A frameless window of 400 x 300 pixels in the colour of the dark panels.
struct TestForm : TestRuntime, Form {
    static constexpr OleColour back = 0x4A3933;

    TestForm()
        : Form(doors, {.name = "TestForm",
                       .title = "Test",
                       .clientSize = {400, 300},
                       .start = FormDesign::systemDefault,
                       .backColour = back}) {}

    void showAndWait() {
        Show();
        QVERIFY(QTest::qWaitForWindowActive(this));
    }
};

/// The colour of an image's pixel as a word 0xBBGGRR.
inline OleColour colourAt(const QImage& image, int x, int y) {
    const QRgb pixel = image.pixel(x, y);
    return static_cast<OleColour>(qRed(pixel) | qGreen(pixel) << 8 | qBlue(pixel) << 16);
}

/// Words that are told in hexadecimal when they differ.
inline QByteArray hex(OleColour colour) { return QByteArray::number(colour, 16).rightJustified(6, '0'); }

} // namespace torvane

#define COMPARE_PIXEL(image, x, y, expected)                                                                 \
    QCOMPARE(torvane::hex(torvane::colourAt(image, x, y)), torvane::hex(expected))
