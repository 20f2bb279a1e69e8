// SPDX-License-Identifier: MIT
// Fetches a small file from a server while the program goes on.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <functional>

namespace torvane::Download {

/// Fetches an http or https address and hands over the body, at most `limit` bytes; an empty body means
/// any failure: a longer answer, an error status, silence of the server, whatever HttpFetch refuses. Nothing
/// is called any more once `receiver` is gone.
void start(QObject& receiver, const QString& address, qint64 limit,
           const std::function<void(const QByteArray&)>& done);

} // namespace torvane::Download
