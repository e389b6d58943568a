// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/ExchangeFailure.h"

#include <QList>

class QSslError;

/// What is wrong when a secure connection cannot be made, in terms that a person understands.
namespace certificateFault {

/// The error of a certificate that tells the most. A wrong name comes before the rest: a certificate of somebody else
/// is often unknown as well. `errors` is not empty.
[[nodiscard]] ExchangeFailure worstOf(const QList<QSslError>& errors);

/// A handshake that failed for another reason; `words` are those of the TLS library.
[[nodiscard]] ExchangeFailure ofHandshake(const QString& words);

} // namespace certificateFault
