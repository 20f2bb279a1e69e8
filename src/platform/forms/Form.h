// SPDX-License-Identifier: MIT
// A window of fixed design: back colour and picture, place, state, owner, life from load to unload.
// Who owns the forms and which one follows another is not known here.
#pragma once

#include "FormDesign.h"
#include "Pictures.h"
#include "Runtime.h"
#include "Wordings.h"

#include <QPointer>
#include <QWidget>
#include <concepts>

namespace torvane {

class Form : public QWidget {
    Q_OBJECT

public:
    enum State { normal = 0, minimised = 1, maximised = 2 };

    Form(Runtime& runtime, const FormDesign& design);

    const FormDesign& design() const { return m_design; }
    Runtime& runtime() { return m_runtime; }
    /// Shows the window without waiting for its end; with an owner it stays above that window and goes
    /// to the front with it. It gives an owner that is not shown yet a moment to appear. One that appears
    /// later is followed from then on. At its first show it takes its start position.
    void Show(Form* owner = nullptr);
    void Hide();
    /// Brings a window that is shown in front of all others, out of the task bar if it is minimised.
    void bringToFront();
    /// Takes the focus of an owned window that has closed. Needs no call for windows of the task bar.
    void takeFocusOfClosed();
    /// Closes the window for good: it is hidden, runs its last handler and lets its owner drop it.
    void Unload();
    /// Whether it has been closed for good: then a handler that has let events through just ends.
    bool isUnloaded() const { return m_unloaded; }
    /// Deletes the window when no handler of it runs any more.
    void goWhenUnused();

    /// Keeps a window in memory as long as it lives: for what lets events through, one of which may unload
    /// it.
    class Hold {
    public:
        explicit Hold(Form& form) : m_form(form) { ++m_form.m_holds; }
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        Form& m_form;
    };

    /// From now on the window takes a file or folder that the desktop drops on it (see DroppedPath).
    void takeDrops() { setAcceptDrops(true); }

    /// The window state. Setting it on a hidden window shows nothing.
    State windowStateWord() const;
    void setWindowStateWord(State state);

    /// The window's place on the desktop and its width, in twips.
    int Left() const { return x() * twipsPerPixel; }
    int Top() const { return y() * twipsPerPixel; }
    int Width() const { return width() * twipsPerPixel; }
    void moveTo(int leftTwips, int topTwips);
    /// Makes the window taller or shorter than its design; twips.
    void setHeight(int twips);

    /// The background picture: the design's at first. A null pixmap leaves the back colour.
    const QPixmap& picture() const { return m_picture.picture(devicePixelRatioF()); }
    void setPicture(const Pictures::Deferred& picture);

    /// The next place in the tab order; for controls under construction.
    int takeTabPlace() { return m_tabPlaces++; }
    /// Its tool tips and spoken names.
    Wordings& wordings() { return m_wordings; }

signals:
    /// The window has been unloaded: it must not be used any more.
    void unloaded();
    /// The window state has changed.
    void resized();
    /// The user has dropped a file or folder of this machine on the window: its spelled path. Emitted after
    /// the desktop has got its answer, so that a handler may take its time.
    void pathDropped(QString path);

protected:
    /// Asked when the user's window manager wants the window closed; the default unloads it.
    virtual void queryUnload() { Unload(); }
    /// The last handler before the window goes.
    virtual void onUnload() {}

    /// What becomes of a failure that a handler lets through.
    enum class Failure {
        ends,    ///< the error box, and then the end of the process
        reported ///< the same box, and the program goes on
    };
    /// Connects a signal to a handler: a member function of this window that takes the signal's arguments
    /// or none. The window stays in memory to the handler's end, and no failure passes its edge.
    template <typename Sender, typename Signal, typename W, typename... Args>
    void wire(Sender& sender, Signal signal, void (W::*handler)(Args...), Failure failure = Failure::ends) {
        auto* window = static_cast<W*>(this);
        connect(&sender, signal, this, [this, window, handler, failure](Args... args) {
            run([&] { (window->*handler)(args...); }, failure);
        });
    }
    /// The same for a function object.
    template <typename Sender, typename Signal, typename Handler>
    void wire(Sender& sender, Signal signal, Handler handler, Failure failure = Failure::ends) {
        connect(
            &sender, signal, this,
            [ this, handler,
              failure ](auto... args) requires std::invocable<const Handler&, decltype(args)...> {
                run([&] { handler(args...); }, failure);
            });
    }

    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void run(const std::function<void()>& handler, Failure failure);
    void takeStartPosition();
    void fixSize(QSize size);
    void appear();
    void appearAnew();
    void waitFor(Form& owner);
    void follow(Form& owner);
    void showWaiting();

    Runtime& m_runtime;
    FormDesign m_design;
    Pictures::Deferred m_picture;
    Wordings m_wordings;
    int m_tabPlaces = 0;
    bool m_placed = false;
    bool m_unloaded = false;
    bool m_isToGo = false;
    bool m_isSentAway = false;       // minimised on Wayland, and not seen to be back
    const Form* m_awaited = nullptr; // the owner that is to be followed when it appears
    QList<QPointer<Form>> m_waiting; // windows that may await this one
    int m_holds = 0;
};

} // namespace torvane
