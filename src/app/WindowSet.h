// SPDX-License-Identifier: MIT
// The windows of a list of classes, reached by name or by class. A class W brings `static constexpr Window
// id`, the constructor W(const Services&), and where it needs them `Load()` and `take(const QStringList&)`.
#pragma once

#include "FormSlot.h"

#include <tuple>

namespace torvane {

template <typename... W>
class WindowSet {
public:
    WindowSet(const Services& services, std::function<void(Window)> unloaded)
        : m_context{services, std::move(unloaded)},
          m_slots(((void)sizeof(W), static_cast<const SlotContext&>(m_context))...) {}
    WindowSet(const WindowSet&) = delete;
    WindowSet& operator=(const WindowSet&) = delete;

    template <typename T>
    FormSlot<T>& slot() {
        return std::get<FormSlot<T>>(m_slots);
    }
    template <typename T>
    const FormSlot<T>& slot() const {
        return std::get<FormSlot<T>>(m_slots);
    }

    static constexpr int count = sizeof...(W);

    /// The window of that name, created if need be; null if it unloaded itself at once.
    Form* load(Window id) {
        Form* form = nullptr;
        ((W::id == id ? void(form = slot<W>().load()) : void()), ...);
        return form;
    }
    /// The same without creating it.
    Form* ifLoaded(Window id) const {
        Form* form = nullptr;
        ((W::id == id ? void(form = slot<W>().ifLoaded()) : void()), ...);
        return form;
    }
    void unload(Window id) { ((W::id == id ? slot<W>().unload() : void()), ...); }
    void take(Window id, const QStringList& subject) {
        ((W::id == id ? slot<W>().take(subject) : void()), ...);
    }

    /// Calls `visit.template operator()<W>()` for each class of the list.
    template <typename Visit>
    static constexpr void forEach(Visit visit) {
        (visit.template operator()<W>(), ...);
    }

private:
    SlotContext m_context;
    std::tuple<FormSlot<W>...> m_slots;
};

} // namespace torvane
