// SPDX-License-Identifier: MIT
// Downloads that their caller waits for.
#include "Inet.h"
#include "../base/File.h"
#include "../base/Paths.h"
#include "FileAddress.h"
#include "Form.h"
#include "HeldInput.h"

#include <QEventLoop>

namespace torvane {

namespace {
// A file's address up to its query or fragment, of which files know nothing.
QByteArray withoutQuery(const QByteArray& address) {
    const auto end =
        std::find_if(address.begin(), address.end(), [](char c) { return c == '?' || c == '#'; });
    return address.left(end - address.begin());
}
} // namespace

Inet::Inet(Form& form, const char* name) : Component(form, name), m_form(form) {
    connect(&form, &Form::unloaded, this, &Inet::Cancel);
}

QByteArray Inet::OpenURL(const QString& address) {
    if (StillExecuting()) throw RuntimeFailure(RuntimeFailure::invalidCall);
    const QByteArray bytes = address.toUtf8();
    if (FileAddress::isOne(bytes)) return contentOf(withoutQuery(bytes));
    const QUrl url = QUrl::fromEncoded(bytes);
    if (!HttpFetch::isWeb(url)) throw RuntimeFailure(RuntimeFailure::invalidCall);
    return download(url);
}

QByteArray Inet::contentOf(const QByteArray& address) const {
    const QByteArray path = FileAddress::pathOf(address);
    if (path.isEmpty()) throw RuntimeFailure(RuntimeFailure::invalidCall);
    const QString spelled = Paths::spelled(path);
    const File file(spelled);
    return aboutFile(spelled, [&] {
        const struct stat before = infoOf(file.handle());
        if (before.st_size > m_limits.bytes) throw RuntimeFailure(RuntimeFailure::deviceError);
        QByteArray body = file.readAt(0, before.st_size);
        if (!isSameState(before, infoOf(file.handle()))) failAsChanged();
        return body;
    });
}

QByteArray Inet::download(const QUrl& address) {
    const Form::Hold hold(m_form);
    HttpFetch fetch(m_limits);
    QEventLoop loop;
    connect(&fetch, &HttpFetch::ended, &loop, &QEventLoop::quit);
    m_fetch = &fetch;
    m_isCancelled = false;
    {
        const HeldInput input(m_closer);
        connect(&input, &HeldInput::closeRequested, this, &Inet::Cancel);
        fetch.start(address);
        loop.exec();
    }
    m_fetch = nullptr;
    // The end of the program ends the loop, too.
    if (m_isCancelled || !fetch.isEnded()) {
        throw RuntimeFailure(RuntimeFailure::deviceError, RuntimeFailure::Reason::cancelled);
    }
    if (!fetch.isWhole()) throw RuntimeFailure(RuntimeFailure::deviceError);
    return fetch.takeBody();
}

void Inet::Cancel() {
    if (m_fetch == nullptr) return;
    m_isCancelled = true;
    m_fetch->abort();
}

} // namespace torvane
