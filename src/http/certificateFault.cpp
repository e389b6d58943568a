// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/certificateFault.h"

#include <QDateTime>
#include <QSslCertificate>
#include <QSslError>

#include <algorithm>
#include <array>

namespace {

using Kind = ExchangeFailure::Kind;

Kind kindOf(QSslError::SslError error)
{
    switch (error) {
    case QSslError::HostNameMismatch:
        return Kind::CertificateOfOther;
    case QSslError::CertificateExpired:
        return Kind::CertificateExpired;
    case QSslError::CertificateNotYetValid:
        return Kind::CertificateTooEarly;
    case QSslError::SelfSignedCertificate:
    case QSslError::SelfSignedCertificateInChain:
        return Kind::CertificateSelfSigned;
    case QSslError::UnableToGetIssuerCertificate:
    case QSslError::UnableToGetLocalIssuerCertificate:
    case QSslError::UnableToVerifyFirstCertificate:
    case QSslError::CertificateUntrusted:
        return Kind::CertificateOfUnknown;
    default:
        return Kind::CertificateRefused;
    }
}

/// The name in a field of a certificate; the host names that it is for, if it has some.
QString issuedTo(const QSslCertificate& certificate)
{
    const QStringList hosts = certificate.subjectAlternativeNames().values(QSsl::DnsEntry);
    return hosts.isEmpty() ? certificate.subjectDisplayName() : hosts.mid(0, 3).join(QLatin1String(", "));
}

QString detailOf(Kind kind, const QSslError& error)
{
    const QSslCertificate certificate = error.certificate();
    if (kind == Kind::CertificateExpired)
        return certificate.expiryDate().date().toString(Qt::ISODate);
    if (kind == Kind::CertificateTooEarly)
        return certificate.effectiveDate().date().toString(Qt::ISODate);
    if (kind == Kind::CertificateOfOther)
        return issuedTo(certificate);
    if (kind == Kind::CertificateOfUnknown)
        return certificate.issuerDisplayName();
    return kind == Kind::CertificateRefused ? error.errorString() : QString();
}

} // namespace

ExchangeFailure certificateFault::worstOf(const QList<QSslError>& errors)
{
    constexpr std::array order { Kind::CertificateOfOther, Kind::CertificateExpired, Kind::CertificateTooEarly,
        Kind::CertificateSelfSigned, Kind::CertificateOfUnknown, Kind::CertificateRefused };
    for (const Kind kind : order) {
        const auto found = std::find_if(
            errors.begin(), errors.end(), [kind](const QSslError& error) { return kindOf(error.error()) == kind; });
        if (found != errors.end())
            return { kind, 0, detailOf(kind, *found) };
    }
    return { Kind::CertificateRefused };
}

ExchangeFailure certificateFault::ofHandshake(const QString& words)
{
    // What OpenSSL and Schannel say when the first bytes are no TLS record.
    for (const auto said : { "wrong version number", "packet length too long", "http request", "token supplied" }) {
        if (words.contains(QLatin1String(said), Qt::CaseInsensitive))
            return { Kind::NoTls };
    }
    return { Kind::Tls, 0, words };
}
