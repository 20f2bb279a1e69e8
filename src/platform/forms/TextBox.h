// SPDX-License-Identifier: MIT
// A field for plain text of one or several lines. Its editor is made when it is first shown: some fields
// never are. What the program sets stays as it is, character by character, where the user does not edit it;
// what the user enters passes a filter first.
#pragma once

#include "Colours.h"
#include "Control.h"

#include <functional>

class QLineEdit;

namespace torvane {

class TextArea;

class TextBox : public Control {
    Q_OBJECT

public:
    struct Look {
        const char* text = "";
        FontSpec font = Fonts::M8;
        OleColour fore = Colours::windowText;
        OleColour back = Colours::windowBack;
        bool multiLine = false;
    };
    /// Gets a piece that was typed or pasted, with LF at its line ends; gives what may stay of it.
    using InputFilter = std::function<QString(const QString&)>;

    TextBox(QWidget& parent, const char* name, const DesignRect& rect, const Look& look);
    ~TextBox() override;

    QString kind() const override { return QStringLiteral("text box"); }
    /// None but that of a frame: the editor within has the text.
    QAccessible::Role accessibleRole() const override { return QAccessible::Client; }
    const QString& Text() const { return m_text; }
    void setText(const QString& text);
    /// Selects all of a field of one line that has been shown: typing replaces it.
    void selectAll();
    OleColour foreColour() const { return m_look.fore; }
    OleColour backColour() const { return m_look.back; }
    void setInputFilter(InputFilter filter) { m_filter = std::move(filter); }

signals:
    /// The text is another one, by the program or by the user.
    void Change();
    /// The user has pressed Return in a field of one line.
    void entered();
    /// The filter left out a part of what the user entered.
    void inputRefused();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeField();
    void makeLine();
    void makeArea();
    void dress(QWidget& field);
    void show(const QString& text);
    bool filterLine(QString& text, int& cursor);
    void takeLine();
    void filterArea();
    void takeArea();
    void take(const QString& text);

    Look m_look;
    InputFilter m_filter;
    QString m_text;
    QString m_shown; // what the editor held after the last change, each character at its place in it
    QLineEdit* m_line = nullptr;
    TextArea* m_area = nullptr;
    bool m_setting = false;
};

} // namespace torvane
