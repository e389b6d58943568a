// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/BodyFraming.h"

#include "http/HeaderFields.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace {

using Elements = std::vector<QByteArrayView>;

bool isOneOf(QByteArrayView token, std::initializer_list<QByteArrayView> tokens)
{
    return std::any_of(tokens.begin(), tokens.end(), [token](auto other) { return isSameToken(token, other); });
}

bool hasElement(const Elements& elements, QByteArrayView token)
{
    return std::any_of(elements.begin(), elements.end(), [token](auto element) { return isSameToken(element, token); });
}

/// Digits only; nothing for any other text, and beyond 63 bits.
std::optional<qint64> wholeNumber(QByteArrayView digits)
{
    qint64 number = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9' || number > (std::numeric_limits<qint64>::max() - (c - '0')) / 10)
            return {};
        number = number * 10 + (c - '0');
    }
    return digits.isEmpty() ? std::nullopt : std::optional(number);
}

/// The length that all elements agree upon; nothing if they do not, or if one is no length.
std::optional<qint64> agreedLength(const Elements& lengths)
{
    std::optional<qint64> agreed;
    for (const QByteArrayView element : lengths) {
        const auto length = wholeNumber(element);
        if (!length || (agreed && agreed != length))
            return {};
        agreed = length;
    }
    return agreed;
}

bool allowsAnotherRequest(const HeaderFields& header)
{
    const Elements options = header.elements("Connection");
    return !header.isDoubtful() && !hasElement(options, "close")
        && (header.isHttp11() || hasElement(options, "keep-alive"));
}

} // namespace

BodyFraming BodyFraming::of(const HeaderFields& header)
{
    const bool isKept = allowsAnotherRequest(header);
    if (header.status() == 204 || header.status() == 304)
        return { End::AtLength, 0, isKept };

    const bool hasLength = header.contains("Content-Length");
    const bool hasTransferCoding = header.contains("Transfer-Encoding");
    const Elements codings = header.elements("Transfer-Encoding");
    if (codings.size() == 1 && isSameToken(codings[0], "chunked"))
        return { End::AtLastChunk, -1, isKept && !hasLength && header.isHttp11() };
    // "identity" was a transfer coding once, and meant none.
    if (codings.size() > 1 || (codings.size() == 1 && !isSameToken(codings[0], "identity")))
        return { End::InDoubt };
    if (!hasLength)
        return { End::AtClose };
    const auto length = agreedLength(header.elements("Content-Length"));
    if (!length)
        return { End::InDoubt };
    return { End::AtLength, *length, isKept && !hasTransferCoding };
}

BodyCoding bodyCodingOf(const HeaderFields& header)
{
    BodyCoding coding = BodyCoding::None;
    for (const QByteArrayView element : header.elements("Content-Encoding")) {
        BodyCoding next = BodyCoding::None;
        if (isOneOf(element, { "gzip", "x-gzip" }))
            next = BodyCoding::Gzip;
        else if (isSameToken(element, "deflate"))
            next = BodyCoding::Deflate;
        else if (isOneOf(element, { "br", "zstd", "compress", "x-compress", "dcb", "dcz", "aes128gcm", "exi" }))
            next = BodyCoding::Unreadable;
        if (next != BodyCoding::None)
            coding = coding == BodyCoding::None ? next : BodyCoding::Unreadable;
    }
    if (coding != BodyCoding::Gzip)
        return coding;
    const QByteArrayView type = header.value("Content-Type");
    const qsizetype parameters = type.indexOf(';');
    const QByteArrayView mediaType = (parameters < 0 ? type : type.first(parameters)).trimmed();
    return isOneOf(mediaType, { "application/gzip", "application/x-gzip", "application/x-gunzip" }) ? BodyCoding::None
                                                                                                    : coding;
}
