// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "http/BodyFraming.h"
#include "http/HeaderFields.h"

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <optional>

class BodyDecoder;

/// Reads one answer of a connection that may be kept, as RFC 9112 says: skips interim answers, finds the end of the
/// body and decodes it. How the answer was cut into pieces makes no difference.
///
/// Bytes go in through `take`, and come out of `next` in bounded portions:
///
///     answer.take(socket.readAll());
///     for (auto portion = answer.next(); portion.kind != Kind::Nothing; portion = answer.next())
///         use(portion);
///
/// The loop may stop anywhere and go on later. Nothing is decoded ahead, so a body that decodes to a thousand times its
/// length never stands in memory. There is one `Header`, then any number of `Body`, then one `End`; or a `Broken` at
/// any place. Behind these two there is nothing more.
class FramedAnswer {
public:
    /// A header with all interim answers before it, and also the extensions and trailers of chunks together, must not
    /// be longer.
    static constexpr qsizetype headerLimit = 256 * 1024;
    static constexpr qsizetype portionLimit = 256 * 1024;
    static constexpr int mostInterimAnswers = 32;

    enum class Fault {
        None,
        HeaderTooLong, ///< or too many interim answers
        NoHttp, ///< no status line of HTTP/1, or a switch to another protocol, which nobody asked for
        LengthInDoubt, ///< the header contradicts itself about where the body ends; comes behind the header
        BrokenChunk,
        UnknownCoding, ///< a coding that is not decoded, such as "br"; comes in the place of the first byte of the body
        BrokenCoding, ///< the coded body breaks its format, or a checksum is wrong
        EndedEarly, ///< the connection was closed within the answer, or the coded body ends within its format
    };
    enum class Kind { Nothing, Header, Body, End, Broken };
    struct Portion {
        Kind kind = Kind::Nothing;
        QByteArray body = {}; ///< of `Body`: 1 to `portionLimit` bytes, decoded
        Fault fault = Fault::None; ///< of `Broken`
    };

    /// Without `decodesBodies`, bodies are handed on as they were sent, in whatever coding.
    explicit FramedAnswer(bool decodesBodies);
    ~FramedAnswer();
    Q_DISABLE_COPY_MOVE(FramedAnswer)

    void take(const QByteArray& piece);
    /// The other side has closed the connection: nothing more will be taken.
    void takeEnd();
    /// `Nothing` when more bytes are needed.
    [[nodiscard]] Portion next();
    /// Hands on no more of the body, and does not decode it, so its coding does not matter. Only its end is looked for.
    void skipBody();

    /// Valid once `next` has returned `Header`.
    [[nodiscard]] const HeaderFields& header() const { return m_header; }
    /// How many bytes the portions of the body will have; -1 where only its end will tell.
    [[nodiscard]] qint64 announcedLength() const;
    /// The bytes of the body so far, as they were sent, without the lines of chunks. A limit for bodies must count
    /// these as well: a coded body can be long and decode to nothing.
    [[nodiscard]] qint64 receivedLength() const { return m_received; }
    /// Whether any byte has come, even an empty line.
    [[nodiscard]] bool hasBegun() const { return m_hasBegun; }
    /// Whether bytes have come behind the end.
    [[nodiscard]] bool hasSurplus() const { return m_state == State::Ended && m_at < m_input.size(); }
    /// Whether the connection can carry another request: the answer has ended, both sides agree where, nothing follows,
    /// and the server does not close.
    [[nodiscard]] bool keepsConnection() const;

private:
    enum class State { BeforeHeader, InHeader, AtBody, InBody, InChunkSize, BehindChunk, InTrailers, Ended };

    [[nodiscard]] bool step(Portion& portion);
    [[nodiscard]] bool skipEmptyLines(Portion& portion);
    [[nodiscard]] bool readHeader(Portion& portion);
    void finishHeader(Portion& portion);
    void beginBody(Portion& portion);
    [[nodiscard]] bool readBody(Portion& portion);
    void handOn(QByteArrayView available, Portion& portion);
    [[nodiscard]] bool readChunkSize(Portion& portion);
    [[nodiscard]] bool readChunkEnd(Portion& portion);
    [[nodiscard]] bool readTrailer(Portion& portion);
    void endByClose(Portion& portion);
    void endBody(Portion& portion);
    void fail(Fault fault, Portion& portion);

    [[nodiscard]] std::optional<QByteArrayView> takeLine(qsizetype free, Portion& portion);
    [[nodiscard]] QByteArrayView unread() const { return QByteArrayView(m_input).sliced(m_at); }

    const bool m_decodesBodies;
    State m_state = State::BeforeHeader;
    QByteArray m_input;
    qsizetype m_at = 0; ///< where the part of `m_input` begins that was not read yet
    qsizetype m_searched = 0; ///< from `m_at`: the lines of a header, or part of a line, that were looked at already
    qsizetype m_headerBytes = 0; ///< of interim answers and empty lines
    qsizetype m_chunkExtras = 0; ///< bytes of extensions and trailers
    int m_interimAnswers = 0;
    HeaderFields m_header;
    BodyFraming m_framing;
    std::unique_ptr<BodyDecoder> m_decoder; ///< of a coded body
    bool m_isUnreadable = false; ///< the body is in a coding that is not decoded
    bool m_skipsBody = false;
    qint64 m_left = 0; ///< bytes of the body or chunk that have not been read
    qint64 m_received = 0;
    bool m_hasBegun = false;
    bool m_isClosed = false;
    bool m_isSound = true; ///< neither a fault nor a doubt about where the answer ends
};
