// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/BodyDecoder.h"

#include <algorithm>
#include <limits>

namespace {

/// Codes of zlib for the format that a stream expects.
constexpr int zlibFormat = MAX_WBITS;
constexpr int rawFormat = -MAX_WBITS;
constexpr int gzipFormat = MAX_WBITS + 16;

constexpr unsigned byteOf(char c)
{
    return static_cast<unsigned char>(c);
}

/// Whether two bytes begin a text with the header of zlib (RFC 1950). The first bytes of raw deflate do not in
/// practice: they would be a stored block with padding that no compressor writes.
constexpr bool isZlibHeader(std::array<char, 2> start)
{
    const unsigned method = byteOf(start[0]) & 0x0fU;
    const unsigned windowSize = byteOf(start[0]) >> 4U;
    return method == 8 && windowSize <= 7 && (byteOf(start[0]) * 256 + byteOf(start[1])) % 31 == 0;
}

constexpr bool isGzipHeader(std::array<char, 2> start)
{
    return byteOf(start[0]) == 0x1f && byteOf(start[1]) == 0x8b;
}

} // namespace

BodyDecoder::BodyDecoder(Format format)
    : m_format(format)
{
    m_isBroken = inflateInit2(&m_zlib, format == Format::Gzip ? gzipFormat : zlibFormat) != Z_OK;
}

BodyDecoder::~BodyDecoder()
{
    inflateEnd(&m_zlib);
}

bool BodyDecoder::isWhole() const
{
    return m_stage == Stage::Between || m_stage == Stage::Behind || (m_stage == Stage::Start && m_collected == 0);
}

QByteArray BodyDecoder::decode(QByteArrayView& coded, qsizetype most)
{
    // Text shrinks to a quarter, so most pieces fit in one portion, and a short one does not take much memory.
    const qsizetype size = std::clamp<qsizetype>(coded.size() * 4, qMin<qsizetype>(most, 1024), most);
    QByteArray decoded(size, Qt::Uninitialized);
    m_zlib.next_out = reinterpret_cast<Bytef*>(decoded.data());
    m_zlib.avail_out = static_cast<uInt>(size);
    while (!m_isBroken && m_zlib.avail_out > 0 && (!coded.isEmpty() || !m_unreadStart.isEmpty() || m_hasMore)) {
        m_hasMore = false;
        if (m_stage == Stage::Behind)
            coded = m_unreadStart = {};
        else if (m_stage == Stage::Inside)
            inflateFrom(m_unreadStart.isEmpty() ? coded : m_unreadStart);
        else
            collectStart(coded);
    }
    m_hasMore = !m_isBroken && m_zlib.avail_out == 0 && m_stage == Stage::Inside;
    decoded.truncate(size - static_cast<qsizetype>(m_zlib.avail_out));
    if (decoded.size() < size / 2)
        decoded.squeeze();
    return decoded;
}

void BodyDecoder::collectStart(QByteArrayView& coded)
{
    m_start[m_collected++] = coded.front();
    coded = coded.sliced(1);
    if (m_collected < m_start.size())
        return;
    m_collected = 0;
    if (m_stage == Stage::Between && !isGzipHeader(m_start))
        m_stage = Stage::Behind;
    else
        begin();
}

void BodyDecoder::begin()
{
    const bool isRaw = m_format == Format::Deflate && !isZlibHeader(m_start);
    const int result = isRaw ? inflateReset2(&m_zlib, rawFormat) : inflateReset(&m_zlib);
    m_isBroken = result != Z_OK;
    m_unreadStart = QByteArrayView(m_start.data(), static_cast<qsizetype>(m_start.size()));
    m_stage = Stage::Inside;
}

void BodyDecoder::inflateFrom(QByteArrayView& coded)
{
    const auto given = static_cast<uInt>(qMin<qsizetype>(coded.size(), std::numeric_limits<int>::max()));
    // zlib declares its input as changeable, but does not change it.
    m_zlib.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(coded.data()));
    m_zlib.avail_in = given;
    const int result = inflate(&m_zlib, Z_NO_FLUSH);
    coded = coded.sliced(static_cast<qsizetype>(given - m_zlib.avail_in));
    if (result == Z_STREAM_END)
        m_stage = m_format == Format::Gzip ? Stage::Between : Stage::Behind;
    else if (result != Z_OK && result != Z_BUF_ERROR)
        m_isBroken = true;
}
