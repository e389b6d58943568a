// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class LanguageTable;

/// Why an exchange failed. The text is made where it is shown.
struct ExchangeFailure {
    enum Kind {
        System, ///< `number` is that of the socket error, `detail` the system's words for it
        BadPort, ///< `number` is the port, which is outside 1 to 65535
        BadUrl, ///< there is no host, or its port is outside 1 to 65535
        Silence, ///< `number` is the time limit in seconds, in which no byte came
        ConnectLimit, ///< `number` is the time limit in seconds, in which no connection was made
        NoTls, ///< the server answered a secure connection without TLS
        Tls, ///< `detail` is what the TLS library says
        CertificateExpired, ///< `detail` is the day of its end
        CertificateTooEarly, ///< `detail` is the day of its begin
        CertificateOfOther, ///< `detail` is the name in the certificate
        CertificateSelfSigned,
        CertificateOfUnknown, ///< `detail` is the name of its issuer, which nobody vouches for
        CertificateRefused, ///< `detail` is what the TLS library says
        AnswerTooLong, ///< the header is over its limit
        AnswerNoHttp, ///< the answer is not HTTP
        AnswerInDoubt, ///< it is not certain where the body ends
        AnswerCut, ///< the connection was closed before the end of the body
        AnswerCoding, ///< the body cannot be decoded
    };
    Kind kind = System;
    int number = 0;
    QString detail = {};

    bool operator==(const ExchangeFailure&) const = default;

    [[nodiscard]] bool isOfCertificate() const { return kind >= CertificateExpired && kind <= CertificateRefused; }
    /// The number that stands in front of the words: that of the like error of a socket.
    [[nodiscard]] int socketError() const;
    [[nodiscard]] QString text(const LanguageTable& language) const;
};
