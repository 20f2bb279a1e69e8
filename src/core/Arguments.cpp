// SPDX-License-Identifier: MIT
// Reading a command line, argument by argument.
#include "Arguments.h"
#include "platform/base/Printable.h"

#include <algorithm>

namespace torvane {

namespace {
class ArgumentReader {
public:
    ArgumentReader(const QByteArrayList& arguments, const std::vector<OptionForm>& known, bool endsAtOperand)
        : m_known(known), m_endsAtOperand(endsAtOperand) {
        m_read.rest = arguments;
    }

    Arguments result() {
        while (!m_read.rest.isEmpty() && !m_isDone) take();
        return m_read;
    }

private:
    void take() {
        const QByteArray& argument = m_read.rest.front();
        if (m_areAllOperands || !argument.startsWith('-') || argument == "-") return takeOperand();
        const QByteArray option = m_read.rest.takeFirst();
        if (option == "--") {
            m_areAllOperands = true;
        } else {
            takeOption(option);
        }
    }
    void takeOperand() {
        if (m_endsAtOperand) {
            m_isDone = true;
            return;
        }
        m_read.operands.append(m_read.rest.takeFirst());
        if (m_read.operands.last().isEmpty()) refuse("the name of a file is empty");
    }
    void takeOption(const QByteArray& argument) {
        const qsizetype equals = argument.indexOf('=');
        const QByteArray name = equals < 0 ? argument : argument.first(equals);
        const auto form = std::find_if(m_known.begin(), m_known.end(),
                                       [&](const OptionForm& known) { return known.name == name; });
        if (form == m_known.end()) return refuse("unknown option '" + printable(argument) + "'");
        const bool takesValue = form->kind == OptionForm::Kind::value || form->kind == OptionForm::Kind::text;
        if (!takesValue && equals >= 0) return refuse("option '" + name + "' takes no value");
        m_isDone = form->kind == OptionForm::Kind::question;
        if (!takesValue) return m_read.options.push_back({name, {}});
        const bool isMissing = equals < 0 && m_read.rest.isEmpty();
        const QByteArray value = equals >= 0 ? argument.sliced(equals + 1)
                                 : isMissing ? QByteArray()
                                             : m_read.rest.takeFirst();
        if (isMissing || (value.isEmpty() && form->kind == OptionForm::Kind::value)) {
            return refuse("option '" + name + "' needs " + form->valueName);
        }
        m_read.options.push_back({name, value});
    }
    void refuse(const QByteArray& fault) {
        m_read.fault = fault;
        m_isDone = true;
    }

    const std::vector<OptionForm>& m_known;
    bool m_endsAtOperand;
    Arguments m_read;
    bool m_areAllOperands = false;
    bool m_isDone = false;
};
} // namespace

Arguments Arguments::read(const QByteArrayList& arguments, const std::vector<OptionForm>& known,
                          Extent extent) {
    return ArgumentReader(arguments, known, extent == Extent::toTheOperand).result();
}

std::optional<QByteArray> Arguments::value(const char* name) const {
    const auto found = std::find_if(options.rbegin(), options.rend(),
                                    [name](const Option& option) { return option.name == name; });
    if (found == options.rend()) return std::nullopt;
    return found->value;
}

} // namespace torvane
