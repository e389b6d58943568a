// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/FramedAnswer.h"
#include "support/Table.h"

#include <QRandomGenerator>
#include <QTest>

#include <zlib.h>

using Kind = FramedAnswer::Kind;

class tst_FramedAnswer : public QObject {
    Q_OBJECT

private slots:
    void readsFields();
    void doubtsFields_data();
    void doubtsFields();
    void readsAnswerHoweverCut_data();
    void readsAnswerHoweverCut();
    void readsCodedBodyHoweverCut_data();
    void readsCodedBodyHoweverCut();
    void limitsHeader_data();
    void limitsHeader();
    void announcesLength_data();
    void announcesLength();
    void decodesBombInPortions();
    void handsLongPieceOnInPortions();
    void skipsBodyUndecoded();
    void takesSurplusForDoubt();
};

namespace {

const char* const faultNames[] = { "none", "header too long", "no HTTP", "length in doubt", "broken chunk",
    "unknown coding", "broken coding", "ended early" };

/// What an answer says: its status, body, and how it ends, as in "200 [hello] kept".
QByteArray outcome(const QByteArrayList& pieces, bool isClosed)
{
    FramedAnswer answer(true);
    QByteArray status;
    QByteArray body;
    QByteArray end = "open";
    const auto drain = [&] {
        for (auto portion = answer.next(); portion.kind != Kind::Nothing; portion = answer.next()) {
            if (portion.kind == Kind::Header)
                status = QByteArray::number(answer.header().status());
            body += portion.body;
            if (portion.kind == Kind::Broken)
                end = faultNames[static_cast<int>(portion.fault)];
            if (portion.kind == Kind::End)
                end = "over";
        }
    };
    for (const QByteArray& piece : pieces) {
        answer.take(piece);
        drain();
    }
    if (answer.keepsConnection())
        end = "kept";
    if (isClosed) {
        answer.takeEnd();
        drain();
    }
    return status + " [" + body + "] " + end + (answer.hasSurplus() && end == "over" ? ", surplus" : "");
}

QByteArrayList cutAtRandom(const QByteArray& text, QRandomGenerator& random)
{
    QByteArrayList pieces;
    for (qsizetype from = 0; from < text.size(); from += pieces.back().size())
        pieces += text.mid(from, random.bounded(1, 40));
    return pieces;
}

void compareHoweverCut(const QByteArray& answer, bool isClosed, const QByteArray& expected)
{
    QCOMPARE(outcome({ answer }, isClosed), expected);
    QByteArrayList bytes;
    for (const char c : answer)
        bytes += QByteArray(1, c);
    QCOMPARE(outcome(bytes, isClosed), expected);
    QRandomGenerator random(1);
    for (int round = 0; round < 20; ++round)
        QCOMPARE(outcome(cutAtRandom(answer, random), isClosed), expected);
}

constexpr int zlibFormat = MAX_WBITS;
constexpr int rawFormat = -MAX_WBITS;
constexpr int gzipFormat = MAX_WBITS + 16;

QByteArray coded(const QByteArray& text, int format)
{
    z_stream stream {};
    deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, format, MAX_MEM_LEVEL, Z_DEFAULT_STRATEGY);
    QByteArray result(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(text.size()))), '\0');
    QByteArray input = text;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    deflate(&stream, Z_FINISH);
    result.truncate(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

QByteArray withLength(const QByteArray& fields, const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\n" + fields + "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

} // namespace

void tst_FramedAnswer::readsFields()
{
    const auto header = HeaderFields::parse("HTTP/1.1  404\tNot found\n"
                                            "Content-Location: /wrong\r\nlocation:/right\t\n"
                                            "Set-Cookie: a=1, b\r\nset-cookie:  b=2 \r\nX: 1,, 2 ,\r\nx: 3\r\n"
                                            "Folded: a\r\n b\n\tc\r\nEmpty:\r\n\r\nLate: 1\r\n");
    QVERIFY(header);
    QCOMPARE(header->status(), 404);
    QVERIFY(header->isHttp11() && !header->isDoubtful());
    QCOMPARE(header->value("Location"), "/right");
    QCOMPARE(header->values("Set-Cookie"), (std::vector<QByteArrayView> { "a=1, b", "b=2" }));
    QCOMPARE(header->elements("X"), (std::vector<QByteArrayView> { "1", "2", "3" }));
    QCOMPARE(header->value("folded").toByteArray().simplified(), "a b c");
    QVERIFY(header->contains("Empty") && header->value("Empty").isEmpty());
    QVERIFY(!header->contains("ocation") && !header->contains("Late"));
}

void tst_FramedAnswer::doubtsFields_data()
{
    const auto row = table<QByteArray, QByteArray>("field", "value");
    row("blank before the colon", "Name : v", "v");
    row("NUL in the value", QByteArray("Name: a\0b", 9), "a b");
    row("lone CR in the value", "Name: a\rOther: b", "a Other: b");
    row("no colon", "Name", {});
    row("no name", ": v", {});
    row("blank in the name", "Na me: v\r\nName: w", "w");
    row("continues no field", " Name: v", {});
    row("continues a line that is no field", "Nonsense\r\n Name: v", {});
}

void tst_FramedAnswer::doubtsFields()
{
    QFETCH(QByteArray, field);
    const auto header = HeaderFields::parse("HTTP/1.0 200 OK\r\n" + field + "\r\n\r\n");
    QVERIFY(header && header->isDoubtful() && !header->isHttp11());
    QTEST(header->value("Name").toByteArray(), "value");
}

void tst_FramedAnswer::readsAnswerHoweverCut_data()
{
    const auto row = table<QByteArray, bool, QByteArray>("answer", "isClosed", "expected");
    const auto open = [&row](const QByteArray& title, const QByteArray& answer, const char* expected) {
        row(title, answer, false, expected);
    };
    const auto closed = [&row](const QByteArray& title, const QByteArray& answer, const char* expected) {
        row(title, answer, true, expected);
    };
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const QByteArray chunked = ok + "Transfer-Encoding: chunked\r\n\r\n";

    open("length", ok + "Content-Length: 5\r\n\r\nhello", "200 [hello] kept");
    open("no bytes", ok + "Content-Length: 0\r\n\r\n", "200 [] kept");
    open("LF alone in the header", "HTTP/1.1 200 OK\nContent-Length: 2\n\nhi", "200 [hi] kept");
    open("empty lines in front", "\r\n\n\r\n" + ok + "content-length:2\r\n\r\nhi", "200 [hi] kept");
    open("interim answers",
        "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n" + ok
            + "Content-Length: 2\r\n\r\nhi",
        "200 [hi] kept");
    open("switch of protocols", "HTTP/1.1 101 Switching Protocols\r\nUpgrade: x\r\n\r\nzz", " [] no HTTP");
    open("other protocol", "SSH-2.0", " [] no HTTP");
    open("other version", "HTTP/2 200\r\n\r\n", " [] no HTTP");
    open("status of four digits", "HTTP/1.1 2000 OK\r\n\r\n", " [] no HTTP");
    open("status with letters", "HTTP/1.1 2x0 OK\r\n\r\n", " [] no HTTP");
    open("close is announced", ok + "Connection: x, CLOSE\r\nContent-Length: 2\r\n\r\nhi", "200 [hi] over");
    open("HTTP/1.0", "HTTP/1.0 200 OK\r\nContent-Length: 2\r\n\r\nhi", "200 [hi] over");
    open("HTTP/1.0 kept", "HTTP/1.0 200 OK\r\nConnection: Keep-Alive\r\nContent-Length: 2\r\n\r\nhi", "200 [hi] kept");
    open("doubtful header", ok + "nonsense\r\nContent-Length: 2\r\n\r\nhi", "200 [hi] over");
    open("same length twice", ok + "Content-Length: 2, 2\r\nContent-Length: 02\r\n\r\nhi", "200 [hi] kept");
    open("two lengths", ok + "Content-Length: 2\r\nContent-Length: 3\r\n\r\nhi", "200 [] length in doubt");
    open("negative length", ok + "Content-Length: -2\r\n\r\nhi", "200 [] length in doubt");
    open("length with a sign", ok + "Content-Length: +2\r\n\r\nhi", "200 [] length in doubt");
    open("empty length", ok + "Content-Length:\r\n\r\nhi", "200 [] length in doubt");
    open("length beyond 63 bits", ok + "Content-Length: 9223372036854775808\r\n\r\nhi", "200 [] length in doubt");
    open("greatest length", ok + "Content-Length: 9223372036854775807\r\n\r\nhi", "200 [hi] open");
    open("no body with 204", "HTTP/1.1 204 No Content\r\nContent-Length: 7\r\n\r\n", "204 [] kept");
    open("no body with 304", "HTTP/1.1 304 Not Modified\r\nTransfer-Encoding: chunked\r\n\r\n", "304 [] kept");
    open("surplus", ok + "Content-Length: 2\r\n\r\nhi!", "200 [hi] over, surplus");
    closed("length cut short", ok + "Content-Length: 5\r\n\r\nhell", "200 [hell] ended early");
    closed("header cut short", ok + "Content-Length: 5\r\n", " [] ended early");
    closed("nothing", "", " [] ended early");
    closed("until the end", ok + "\r\nhello", "200 [hello] over");
    open("no end", ok + "\r\nhello", "200 [hello] open");

    open("chunks", chunked + "5\r\nhello\r\n00A \t\r\n, world...\r\n0\r\n\r\n", "200 [hello, world...] kept");
    open("extensions and trailers", chunked + "2;a=\"b\"\r\nhi\r\n0;x\r\nA: b\r\nC: d\r\n\r\n", "200 [hi] kept");
    open("chunks and a length", ok + "Content-Length: 9\r\nTransfer-Encoding: Chunked\r\n\r\n2\r\nhi\r\n0\r\n\r\n",
        "200 [hi] over");
    open("chunks and a wrong length",
        ok + "Content-Length: x\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nhi\r\n0\r\n\r\n", "200 [hi] over");
    open("chunks of HTTP/1.0",
        "HTTP/1.0 200 OK\r\nConnection: keep-alive\r\nTransfer-Encoding: chunked\r\n\r\n2\r\nhi\r\n0\r\n\r\n",
        "200 [hi] over");
    open("chunks with LF alone", chunked + "2\nhi\r\n0\r\n\r\n", "200 [hi] over");
    open("data with LF alone", chunked + "2\r\nhi\n0\r\n\r\n", "200 [hi] over");
    open("surplus behind chunks", chunked + "0\r\n\r\n\r\n", "200 [] over, surplus");
    open("other transfer coding", ok + "Transfer-Encoding: gzip, chunked\r\n\r\n", "200 [] length in doubt");
    open("chunked in two", ok + "Transfer-Encoding: chunked\r\nTransfer-Encoding: chunked\r\n\r\n",
        "200 [] length in doubt");
    open("transfer coding that means none", ok + "Transfer-Encoding: identity\r\nContent-Length: 2\r\n\r\nhi",
        "200 [hi] over");
    for (const char* const size : { "", "g", "-1", "0x2", "2 2", "2\r;a", ";a", "8000000000000000", " 2" })
        open(QByteArray("chunk size \"") + size + "\"", chunked + "1\r\nh\r\n" + size + "\r\nhi\r\n",
            "200 [h] broken chunk");
    open("greatest chunk", chunked + "7FFFFFFFFFFFFFFF\r\nhi", "200 [hi] open");
    open("data longer than the chunk", chunked + "2\r\nhi!\r\n0\r\n\r\n", "200 [hi] broken chunk");
    closed("no last chunk", chunked + "2\r\nhi\r\n", "200 [hi] ended early");
    closed("no empty line behind the last chunk", chunked + "2\r\nhi\r\n0\r\n", "200 [hi] over");
    closed("last chunk cut short", chunked + "2\r\nhi\r\n0\r", "200 [hi] ended early");
}

void tst_FramedAnswer::readsAnswerHoweverCut()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, isClosed);
    QFETCH(QByteArray, expected);
    compareHoweverCut(answer, isClosed, expected);
}

void tst_FramedAnswer::readsCodedBodyHoweverCut_data()
{
    const auto row = table<QByteArray, QByteArray, QByteArray>("fields", "body", "expected");
    const auto addRow = [&row](
                            const char* title, const char* coding, const QByteArray& body, const QByteArray& expected) {
        row(title, QByteArray("Content-Encoding: ") + coding + "\r\n", body, "200 [" + expected);
    };
    const QByteArray text = QByteArray("hello, world; ").repeated(30);
    const QByteArray gzip = coded(text, gzipFormat);
    QByteArray otherSum = gzip;
    otherSum[gzip.size() - 6] = static_cast<char>(otherSum[gzip.size() - 6] ^ 1);
    addRow("gzip", "gzip", gzip, text + "] kept");
    addRow("x-gzip in capitals", "X-GZIP", gzip, text + "] kept");
    addRow(
        "gzip in members", "gzip", gzip + coded("second", gzipFormat) + coded("", gzipFormat), text + "second] kept");
    addRow("garbage behind", "gzip", gzip + "\x1fgarbage", text + "] kept");
    addRow("zeros behind", "gzip", gzip + QByteArray(20, '\0'), text + "] kept");
    addRow("wrong checksum", "gzip", otherSum, text + "] broken coding");
    addRow("wrong checksum, more behind", "gzip", otherSum + "more", text + "] broken coding");
    addRow("no gzip", "gzip", "hello", "] broken coding");
    addRow("gzip cut short", "gzip", gzip.chopped(3), text + "] ended early");
    addRow("one byte of gzip", "gzip", "\x1f", "] ended early");
    addRow("second member cut short", "gzip", gzip + gzip.first(3), text + "] ended early");
    addRow("nothing", "gzip", "", "] kept");
    addRow("deflate with a header", "deflate", coded(text, zlibFormat), text + "] kept");
    addRow("deflate without one", "deflate", coded(text, rawFormat), text + "] kept");
    addRow("shortest deflate", "deflate", QByteArray("\x03\x00", 2), "] kept");
    addRow("garbage behind deflate", "deflate", coded(text, zlibFormat) + "garbage", text + "] kept");
    addRow("identity", "identity", "hello", "hello] kept");
    addRow("identity beside gzip", "identity, gzip", gzip, text + "] kept");
    addRow("no name of a coding", "utf-8", "hello", "hello] kept");
    addRow("unknown coding", "br", "hello", "] unknown coding");
    addRow("unknown coding of nothing", "br", "", "] kept");
    addRow("several codings", "gzip, gzip", coded(gzip, gzipFormat), "] unknown coding");
    addRow("a gzip file", "gzip\r\nContent-Type: Application/X-GZIP; a=b", "file", "file] kept");
}

void tst_FramedAnswer::readsCodedBodyHoweverCut()
{
    QFETCH(QByteArray, fields);
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, expected);
    compareHoweverCut(withLength(fields, body), false, expected);
    // The same in chunks of 7 bytes.
    QByteArray chunks;
    for (qsizetype from = 0; from < body.size(); from += 7) {
        const QByteArray data = body.mid(from, 7);
        chunks += QByteArray::number(data.size(), 16) + "\r\n" + data + "\r\n";
    }
    compareHoweverCut(
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n" + fields + "\r\n" + chunks + "0\r\n\r\n", false, expected);
}

void tst_FramedAnswer::limitsHeader_data()
{
    const auto row = table<QByteArray, QByteArray>("answer", "expected");
    constexpr qsizetype limit = FramedAnswer::headerLimit;
    const QByteArray interim = "HTTP/1.1 100 Continue\r\n\r\n";
    const QByteArray start = "HTTP/1.1 204 x\r\nX: ";
    const QByteArray longest = start + QByteArray(limit - start.size() - 4, 'x') + "\r\n\r\n";
    row("at the limit", longest, "204 [] kept");
    row("beyond it", "\n" + longest, " [] header too long");
    row("beyond it by an interim answer", interim + longest, " [] header too long");
    row("most interim answers", interim.repeated(32) + "HTTP/1.1 204 x\r\n\r\n", "204 [] kept");
    row("one more", interim.repeated(33), " [] header too long");
    const QByteArray chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";
    const QByteArray extended = "1;" + QByteArray(1000, 'x') + "\r\nh\r\n";
    row("longest trailer", chunked + "0\r\nX" + QByteArray(limit - 5, 'x') + "\r\n\r\n", "200 [] kept");
    row("longer trailer", chunked + "0\r\nX" + QByteArray(limit, 'x'), "200 [] broken chunk");
    row("extensions without end", chunked + extended.repeated(300), "200 [" + QByteArray(269, 'h') + "] broken chunk");
}

void tst_FramedAnswer::limitsHeader()
{
    QFETCH(QByteArray, answer);
    QTEST(outcome({ answer }, false), "expected");
    QByteArrayList pieces;
    for (qsizetype from = 0; from < answer.size(); from += 999)
        pieces += answer.mid(from, 999);
    QTEST(outcome(pieces, false), "expected");
}

void tst_FramedAnswer::announcesLength_data()
{
    const auto row = table<QByteArray, qint64>("fields", "length");
    row("not coded", "Content-Length: 9\r\n", 9);
    row("coded", "Content-Length: 9\r\nContent-Encoding: gzip\r\n", -1);
    row("in chunks", "Content-Length: 9\r\nTransfer-Encoding: chunked\r\n", -1);
    row("none", {}, -1);
}

void tst_FramedAnswer::announcesLength()
{
    QFETCH(QByteArray, fields);
    FramedAnswer answer(true);
    QVERIFY(!answer.hasBegun());
    answer.take("HTTP/1.1 200 OK\r\n" + fields + "\r\n");
    QVERIFY(answer.hasBegun());
    QCOMPARE(answer.next().kind, Kind::Header);
    QTEST(answer.announcedLength(), "length");
}

void tst_FramedAnswer::decodesBombInPortions()
{
    constexpr qsizetype length = 64 * 1024 * 1024;
    FramedAnswer answer(true);
    answer.take(withLength("Content-Encoding: gzip\r\n", coded(QByteArray(length, 'x'), gzipFormat)));
    QCOMPARE(answer.next().kind, Kind::Header);
    qsizetype decoded = 0;
    auto portion = answer.next();
    for (; portion.kind == Kind::Body; portion = answer.next()) {
        QVERIFY(portion.body.size() <= FramedAnswer::portionLimit && portion.body.capacity() < 2 * 1024 * 1024);
        QVERIFY(portion.body.count('x') == portion.body.size());
        decoded += portion.body.size();
    }
    QCOMPARE(portion.kind, Kind::End);
    QCOMPARE(decoded, length);
    QVERIFY(answer.receivedLength() < length / 500);
}

void tst_FramedAnswer::handsLongPieceOnInPortions()
{
    const QByteArray body(3 * FramedAnswer::portionLimit + 1, 'x');
    FramedAnswer answer(true);
    answer.take(withLength({}, body));
    QByteArray received;
    for (auto portion = answer.next(); portion.kind != Kind::End; portion = answer.next()) {
        QVERIFY(portion.kind != Kind::Nothing && portion.body.size() <= FramedAnswer::portionLimit);
        received += portion.body;
    }
    QCOMPARE(received, body);
}

void tst_FramedAnswer::skipsBodyUndecoded()
{
    for (const QByteArray coding : { "br", "gzip" }) {
        FramedAnswer answer(true);
        answer.take(withLength("Content-Encoding: " + coding + "\r\n", "hello"));
        QCOMPARE(answer.next().kind, Kind::Header);
        answer.skipBody();
        QCOMPARE(answer.next().kind, Kind::End);
        QVERIFY(answer.keepsConnection());
        QCOMPARE(answer.receivedLength(), 5);
    }
}

void tst_FramedAnswer::takesSurplusForDoubt()
{
    FramedAnswer answer(true);
    answer.take(withLength({}, {}));
    while (answer.next().kind != Kind::End) { }
    QVERIFY(answer.keepsConnection());
    answer.take("HTTP/1.1 200 OK\r\n");
    QCOMPARE(answer.next().kind, Kind::Nothing);
    QVERIFY(answer.hasSurplus() && !answer.keepsConnection());
}

QTEST_GUILESS_MAIN(tst_FramedAnswer)
#include "tst_FramedAnswer.moc"
