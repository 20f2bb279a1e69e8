// SPDX-License-Identifier: MIT
// The one instance of a window: created at first use, gone when it unloads itself.
#pragma once

#include "platform/forms/Form.h"

#include <functional>
#include <memory>

namespace torvane {

template <typename Window>
class FormSlot {
public:
    using Maker = std::function<std::unique_ptr<Window>()>;

    explicit FormSlot(Maker maker) : m_maker(std::move(maker)) {}

    /// The window, created and loaded if need be.
    Window& get() {
        load();
        return *m_window;
    }
    /// The window if it is there; null if not.
    Window* ifLoaded() const { return m_window.get(); }
    /// Creates the window if need be and runs its load handler, after which it may be gone again.
    void load() {
        if (m_window) return;
        m_window = m_maker();
        QObject::connect(m_window.get(), &Form::unloaded, m_window.get(), [this] { letGo(); });
        if constexpr (requires { m_window->Load(); }) m_window->Load();
    }
    void unload() {
        if (m_window) m_window->Unload();
    }

private:
    // The window may be in one of its own handlers: it goes when they are through.
    void letGo() { m_window.release()->goWhenUnused(); }

    Maker m_maker;
    std::unique_ptr<Window> m_window;
};

} // namespace torvane
