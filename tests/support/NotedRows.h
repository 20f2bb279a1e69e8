// SPDX-License-Identifier: MIT
// Rows for tests of lists, which record the requests for them, and the user's mouse and keys on a list.
#pragma once

#include "platform/base/RowSource.h"
#include "platform/forms/RowList.h"

#include <QSet>
#include <QTableView>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest>

namespace torvane {

struct NotedRows : RowSource {
    explicit NotedRows(int rows) : m_count(rows) {}
    explicit NotedRows(QStringList rows) : m_count(int(rows.size())), m_texts(std::move(rows)) {}

    int count() const override { return m_count; }
    QString text(int row, int column) const override {
        note(row);
        if (!m_texts.isEmpty()) return m_texts[row];
        return QStringLiteral("Game %1").arg(row) + QString(column, QLatin1Char('*'));
    }
    int icon(int row) const override {
        note(row);
        return row % 5;
    }
    QString key(int row) const override { return QStringLiteral("key%1").arg(row); }

    mutable QSet<int> asked;
    mutable int questions = 0;

private:
    void note(int row) const {
        asked.insert(row);
        ++questions;
    }
    int m_count;
    QStringList m_texts;
};

/// The Qt view inside a list. The list must have been shown.
inline QTableView& viewOf(RowList& list) { return *list.findChild<QTableView*>(); }

/// A click at a point of the list, sent via the window, so that it reaches the topmost widget there.
inline void clickAt(const QWidget& list, QPoint place, Qt::MouseButton button = Qt::LeftButton,
                    Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list.window()->windowHandle(), button, keys, list.mapTo(list.window(), place));
}
inline void clickRow(const RowList& list, int row) { clickAt(list, list.rowRect(row).center()); }
/// Two clicks in quick succession.
inline void doubleClickAt(const QWidget& list, QPoint place) {
    QTest::mouseDClick(list.window()->windowHandle(), Qt::LeftButton, {}, list.mapTo(list.window(), place));
}
/// Turns the wheel over the list by eighths of a degree, to the right and up if positive. The event is marked
/// as spontaneous: Qt passes only such a one from widget to widget until one accepts it.
inline void wheelOn(RowList& list, QPoint eighths) {
    const QPoint place(20, 20);
    QWidget* under = list.childAt(place);
    QWheelEvent event(under->mapFrom(&list, place), list.mapToGlobal(place), {}, eighths, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(under, &event);
}
inline void wheelOn(RowList& list, int eighthsUp) { wheelOn(list, QPoint(0, eighthsUp)); }
inline void wheelSidewaysOn(RowList& list, int eighths) { wheelOn(list, QPoint(eighths, 0)); }
/// Sends a key to the focus widget of the list's window.
inline void pressKey(const QWidget& list, Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(list.window()->windowHandle(), key, keys);
}
/// Types a character into the list at a time in milliseconds of the clock that key events come with.
inline void typeAt(RowList& list, quint64 time, const QString& character) {
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, character);
    event.setTimestamp(time);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&viewOf(list), &event);
}

} // namespace torvane
