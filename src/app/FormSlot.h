// SPDX-License-Identifier: MIT
// The one instance of a window: created at first use, gone when it unloads itself.
#pragma once

#include "core/LanguageTables.h"
#include "core/Services.h"
#include "core/Window.h"
#include "platform/forms/Form.h"

#include <functional>
#include <memory>

namespace torvane {

/// What every slot is given: the services for its window, and whom to call when the window has unloaded.
struct SlotContext {
    const Services& services;
    std::function<void(Window)> unloaded;
};

template <typename W>
class FormSlot {
public:
    explicit FormSlot(const SlotContext& context) : m_context(context) {}

    /// The window if it is there; null if not.
    W* ifLoaded() const { return m_window.get(); }
    /// The window, created and run through its load handler if need be; null if it unloaded itself in that.
    W* load() {
        if (m_window) return m_window.get();
        m_window = std::make_unique<W>(m_context.services);
        QObject::connect(m_window.get(), &Form::unloaded, m_window.get(), [this] { letGo(); });
        m_window->wordings().follow([this](const QString& section, const QString& key) {
            return m_context.services.language.LangText(section, key);
        });
        if constexpr (requires { m_window->Load(); }) m_window->Load();
        return m_window.get();
    }
    void unload() {
        if (m_window) m_window->Unload();
    }
    /// Hands the window that is there what it is to work on; windows without a `take` need nothing.
    void take(const QStringList& subject) {
        if constexpr (requires { m_window->take(subject); }) {
            if (m_window && !subject.isEmpty()) m_window->take(subject);
        }
    }

private:
    // The window may be inside one of its own handlers, such as Load: it is deleted when they have returned.
    void letGo() {
        m_window.release()->goWhenUnused();
        m_context.unloaded(W::id);
    }

    const SlotContext& m_context;
    std::unique_ptr<W> m_window;
};

} // namespace torvane
