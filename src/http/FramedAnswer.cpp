// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/FramedAnswer.h"

#include "base/allgemein.h"
#include "http/BodyDecoder.h"

#include <algorithm>
#include <limits>

namespace {

/// As many bytes of a chunk-size line cost nothing: size, padding and line end need no more. What stands behind them
/// counts against the limit.
constexpr qsizetype freeBytesOfSizeLine = 32;

/// -1 for any other byte.
constexpr int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char small = allgemein::lower(c);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

/// The size at the beginning of a chunk-size line; nothing if the line breaks the rules.
std::optional<qint64> chunkSize(QByteArrayView line)
{
    qint64 size = 0;
    qsizetype at = 0;
    for (; at < line.size(); ++at) {
        const int digit = hexDigit(line[at]);
        if (digit < 0)
            break;
        if (size > std::numeric_limits<qint64>::max() / 16)
            return {};
        size = size * 16 + digit;
    }
    if (at == 0)
        return {};
    const QByteArrayView rest = line.sliced(at).trimmed();
    return rest.isEmpty() || rest.front() == ';' ? std::optional(size) : std::nullopt;
}

} // namespace

FramedAnswer::FramedAnswer(bool decodesBodies)
    : m_decodesBodies(decodesBodies)
{
}

FramedAnswer::~FramedAnswer() = default;

void FramedAnswer::take(const QByteArray& piece)
{
    m_hasBegun = m_hasBegun || !piece.isEmpty();
    if (m_at == m_input.size()) {
        m_input = piece;
    } else {
        m_input.remove(0, m_at);
        m_input += piece;
    }
    m_at = 0;
}

void FramedAnswer::takeEnd()
{
    m_isClosed = true;
}

FramedAnswer::Portion FramedAnswer::next()
{
    Portion portion;
    while (portion.kind == Kind::Nothing) {
        if (step(portion))
            continue;
        if (m_isClosed && m_state != State::Ended)
            endByClose(portion);
        break;
    }
    return portion;
}

void FramedAnswer::skipBody()
{
    m_skipsBody = true;
    m_decoder.reset();
}

qint64 FramedAnswer::announcedLength() const
{
    return m_decoder || m_isUnreadable ? -1 : m_framing.length;
}

bool FramedAnswer::keepsConnection() const
{
    return m_state == State::Ended && m_isSound && m_framing.keepsConnection && !m_isClosed && !hasSurplus();
}

/// Reads on by one line or piece. False when more bytes are needed, and behind the end.
bool FramedAnswer::step(Portion& portion)
{
    switch (m_state) {
    case State::BeforeHeader:
        return skipEmptyLines(portion);
    case State::InHeader:
        return readHeader(portion);
    case State::AtBody:
        beginBody(portion);
        return true;
    case State::InBody:
        return readBody(portion);
    case State::InChunkSize:
        return readChunkSize(portion);
    case State::BehindChunk:
        return readChunkEnd(portion);
    case State::InTrailers:
        return readTrailer(portion);
    case State::Ended:
        break;
    }
    return false;
}

/// A server may send an empty line behind a body, which then stands before the next answer. What does not begin as an
/// answer does is found out at once: another protocol may send its greeting and wait.
bool FramedAnswer::skipEmptyLines(Portion& portion)
{
    constexpr QByteArrayView protocol = "HTTP/";
    const QByteArrayView rest = unread();
    const qsizetype emptyLine = rest.startsWith("\r\n") ? 2 : rest.startsWith('\n') ? 1 : 0;
    m_at += emptyLine;
    m_headerBytes += emptyLine;
    if (m_headerBytes > headerLimit) {
        fail(Fault::HeaderTooLong, portion);
        return true;
    }
    if (emptyLine > 0)
        return true;
    if (rest.isEmpty() || rest == QByteArrayView("\r"))
        return false;
    const qsizetype compared = qMin(rest.size(), protocol.size());
    if (rest.first(compared) != protocol.first(compared))
        fail(Fault::NoHttp, portion);
    else if (compared == protocol.size())
        m_state = State::InHeader;
    else
        return false;
    return true;
}

bool FramedAnswer::readHeader(Portion& portion)
{
    // Up to `m_searched` are whole lines.
    const QByteArrayView rest = unread();
    const qsizetype lineFeed = rest.indexOf('\n', m_searched);
    const qsizetype length = lineFeed < 0 ? rest.size() : lineFeed + 1;
    if (m_headerBytes + length > headerLimit) {
        fail(Fault::HeaderTooLong, portion);
        return true;
    }
    if (lineFeed < 0)
        return false;
    const QByteArrayView line = rest.sliced(m_searched, lineFeed - m_searched);
    m_searched = length;
    if (line.isEmpty() || line == QByteArrayView("\r"))
        finishHeader(portion);
    return true;
}

void FramedAnswer::finishHeader(Portion& portion)
{
    const auto header = HeaderFields::parse(m_input.sliced(m_at, m_searched));
    m_at += m_searched;
    m_headerBytes += m_searched;
    m_searched = 0;
    if (!header || header->status() == 101) {
        fail(Fault::NoHttp, portion);
    } else if (header->status() < 200) {
        m_state = State::BeforeHeader;
        if (++m_interimAnswers > mostInterimAnswers)
            fail(Fault::HeaderTooLong, portion);
    } else {
        m_header = *header;
        m_framing = BodyFraming::of(m_header);
        const bool mayBeCoded = m_decodesBodies && m_framing.length != 0;
        const BodyCoding coding = mayBeCoded ? bodyCodingOf(m_header) : BodyCoding::None;
        if (coding == BodyCoding::Gzip || coding == BodyCoding::Deflate)
            m_decoder = std::make_unique<BodyDecoder>(
                coding == BodyCoding::Gzip ? BodyDecoder::Format::Gzip : BodyDecoder::Format::Deflate);
        m_isUnreadable = coding == BodyCoding::Unreadable;
        m_state = State::AtBody;
        portion.kind = Kind::Header;
    }
}

void FramedAnswer::beginBody(Portion& portion)
{
    switch (m_framing.end) {
    case BodyFraming::End::AtLength:
        m_left = m_framing.length;
        m_state = State::InBody;
        return;
    case BodyFraming::End::AtLastChunk:
        m_state = State::InChunkSize;
        return;
    case BodyFraming::End::AtClose:
        m_left = std::numeric_limits<qint64>::max();
        m_state = State::InBody;
        return;
    case BodyFraming::End::InDoubt:
        fail(Fault::LengthInDoubt, portion);
        return;
    }
}

bool FramedAnswer::readBody(Portion& portion)
{
    if (m_decoder && m_decoder->isBroken()) {
        fail(Fault::BrokenCoding, portion);
        return true;
    }
    const auto available = static_cast<qsizetype>(qMin<qint64>(m_left, unread().size()));
    if (available > 0 || (m_decoder && m_decoder->hasMore())) {
        handOn(unread().first(available), portion);
        return true;
    }
    if (m_left > 0)
        return false;
    if (m_framing.end == BodyFraming::End::AtLastChunk)
        m_state = State::BehindChunk;
    else
        endBody(portion);
    return true;
}

/// Reads of the body what is `available`, or as much of it as gives one portion.
void FramedAnswer::handOn(QByteArrayView available, Portion& portion)
{
    if (m_isUnreadable && !m_skipsBody) {
        fail(Fault::UnknownCoding, portion);
        return;
    }
    QByteArrayView rest = available;
    if (m_decoder) {
        portion.body = m_decoder->decode(rest, portionLimit);
    } else if (m_skipsBody) {
        rest = {};
    } else {
        const qsizetype length = qMin(available.size(), portionLimit);
        // Mostly all that has come is body, and need not be copied.
        portion.body = length == m_input.size() ? m_input : m_input.sliced(m_at, length);
        rest = available.sliced(length);
    }
    const qsizetype used = available.size() - rest.size();
    m_at += used;
    m_left -= used;
    m_received += used;
    if (!portion.body.isEmpty())
        portion.kind = Kind::Body;
}

/// The next line without its end; nothing when it has not come as a whole, or when it fails the answer. The bytes
/// beyond the first `free` ones count against the limit of what chunks have beside their data.
std::optional<QByteArrayView> FramedAnswer::takeLine(qsizetype free, Portion& portion)
{
    const QByteArrayView rest = unread();
    const qsizetype lineFeed = rest.indexOf('\n', m_searched);
    const qsizetype length = lineFeed < 0 ? rest.size() : lineFeed + 1;
    const qsizetype extras = m_chunkExtras + qMax<qsizetype>(0, length - free);
    if (extras > headerLimit) {
        fail(Fault::BrokenChunk, portion);
        return {};
    }
    if (lineFeed < 0) {
        m_searched = length;
        return {};
    }
    m_chunkExtras = extras;
    m_searched = 0;
    m_at += length;
    const bool hasReturn = lineFeed > 0 && rest[lineFeed - 1] == '\r';
    // The rules for chunks demand both. A reader that takes no LF alone would find the end elsewhere.
    m_isSound = m_isSound && hasReturn;
    return rest.first(hasReturn ? lineFeed - 1 : lineFeed);
}

bool FramedAnswer::readChunkSize(Portion& portion)
{
    const auto line = takeLine(freeBytesOfSizeLine, portion);
    if (!line)
        return portion.kind == Kind::Broken;
    const auto size = line->contains('\r') ? std::nullopt : chunkSize(*line);
    if (!size) {
        fail(Fault::BrokenChunk, portion);
        return true;
    }
    m_left = *size;
    m_state = m_left == 0 ? State::InTrailers : State::InBody;
    return true;
}

bool FramedAnswer::readChunkEnd(Portion& portion)
{
    const QByteArrayView rest = unread();
    if (rest.isEmpty() || rest == QByteArrayView("\r"))
        return false;
    const bool hasReturn = rest.startsWith("\r\n");
    if (!hasReturn && rest.front() != '\n') {
        fail(Fault::BrokenChunk, portion);
        return true;
    }
    m_isSound = m_isSound && hasReturn;
    m_at += hasReturn ? 2 : 1;
    m_state = State::InChunkSize;
    return true;
}

bool FramedAnswer::readTrailer(Portion& portion)
{
    const auto line = takeLine(0, portion);
    if (!line)
        return portion.kind == Kind::Broken;
    if (line->isEmpty())
        endBody(portion);
    return true;
}

void FramedAnswer::endByClose(Portion& portion)
{
    // Behind the last chunk the body is whole: some servers close without the empty line.
    const bool isWhole =
        m_state == State::InTrailers || (m_state == State::InBody && m_framing.end == BodyFraming::End::AtClose);
    if (isWhole)
        endBody(portion);
    else
        fail(Fault::EndedEarly, portion);
}

void FramedAnswer::endBody(Portion& portion)
{
    if (m_decoder && !m_decoder->isWhole()) {
        fail(Fault::EndedEarly, portion);
        return;
    }
    m_state = State::Ended;
    portion.kind = Kind::End;
}

void FramedAnswer::fail(Fault fault, Portion& portion)
{
    m_state = State::Ended;
    m_isSound = false;
    portion.kind = Kind::Broken;
    portion.fault = fault;
}
