// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/ExchangeFailure.h"

#include "base/allgemein.h"
#include "base/lang.h"

#include <QAbstractSocket>

namespace {

/// The language table's key of the words, in which %1 stands for the number or the detail.
const char* keyOf(ExchangeFailure::Kind kind)
{
    switch (kind) {
    case ExchangeFailure::System:
        return nullptr;
    case ExchangeFailure::BadPort:
        return "more.badPort";
    case ExchangeFailure::BadUrl:
        return "more.badUrl";
    case ExchangeFailure::Silence:
        return "more.silence";
    case ExchangeFailure::ConnectLimit:
        return "more.connectLimit";
    case ExchangeFailure::NoTls:
        return "more.noTls";
    case ExchangeFailure::Tls:
        return "more.tls";
    case ExchangeFailure::CertificateExpired:
        return "more.certificateExpired";
    case ExchangeFailure::CertificateTooEarly:
        return "more.certificateTooEarly";
    case ExchangeFailure::CertificateOfOther:
        return "more.certificateOfOther";
    case ExchangeFailure::CertificateSelfSigned:
        return "more.certificateSelfSigned";
    case ExchangeFailure::CertificateOfUnknown:
        return "more.certificateOfUnknown";
    case ExchangeFailure::CertificateRefused:
        return "more.certificateRefused";
    case ExchangeFailure::AnswerTooLong:
        return "more.answerTooLong";
    case ExchangeFailure::AnswerNoHttp:
        return "more.answerNoHttp";
    case ExchangeFailure::AnswerInDoubt:
        return "more.answerInDoubt";
    case ExchangeFailure::AnswerCut:
        return "more.answerCut";
    case ExchangeFailure::AnswerCoding:
        return "more.answerCoding";
    }
    return nullptr;
}

} // namespace

int ExchangeFailure::socketError() const
{
    switch (kind) {
    case System:
        return number;
    case BadPort:
    case BadUrl:
        return QAbstractSocket::SocketAddressNotAvailableError;
    case Silence:
    case ConnectLimit:
        return QAbstractSocket::SocketTimeoutError;
    case NoTls:
    case Tls:
    case CertificateExpired:
    case CertificateTooEarly:
    case CertificateOfOther:
    case CertificateSelfSigned:
    case CertificateOfUnknown:
    case CertificateRefused:
        return QAbstractSocket::SslHandshakeFailedError;
    case AnswerTooLong:
    case AnswerNoHttp:
    case AnswerInDoubt:
    case AnswerCut:
    case AnswerCoding:
        return QAbstractSocket::UnknownSocketError;
    }
    return QAbstractSocket::UnknownSocketError;
}

QString ExchangeFailure::text(const LanguageTable& language) const
{
    const char* const key = keyOf(kind);
    if (!key)
        return allgemein::withVisibleControls(detail);
    const QString words = language.text(key);
    if (!words.contains(QLatin1String("%1")))
        return words;
    return words.arg(detail.isEmpty() ? QString::number(number) : allgemein::withVisibleControls(detail));
}
