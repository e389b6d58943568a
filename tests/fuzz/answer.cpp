// SPDX-License-Identifier: GPL-3.0-or-later
#include "fuzz/fuzz.h"
#include "http/FramedAnswer.h"

#include <array>
#include <utility>

using Kind = FramedAnswer::Kind;

namespace {

/// Everything that an answer says.
struct Outcome {
    QByteArray header;
    QByteArray body;
    FramedAnswer::Portion last; ///< `End` or `Broken`; `Nothing` while more may come
    qint64 announced = -1;
    bool isKept = false;
    bool hasSurplus = false;
};

class Reading {
public:
    Reading(bool decodes, bool skips)
        : m_answer(decodes)
        , m_skips(skips)
    {
    }
    void take(const QByteArray& piece)
    {
        m_answer.take(piece);
        drain();
    }
    Outcome end()
    {
        m_outcome.isKept = m_answer.keepsConnection();
        m_outcome.hasSurplus = m_answer.hasSurplus();
        m_answer.takeEnd();
        drain();
        require(m_outcome.last.kind != Kind::Nothing, "an answer ends with its connection");
        return m_outcome;
    }

private:
    void drain()
    {
        for (auto portion = m_answer.next(); portion.kind != Kind::Nothing; portion = m_answer.next())
            use(portion);
    }
    void use(const FramedAnswer::Portion& portion)
    {
        require(m_outcome.last.kind == Kind::Nothing, "nothing comes behind the end");
        require((portion.kind == Kind::Body) != portion.body.isEmpty(), "a portion of the body has bytes");
        require((portion.kind == Kind::Broken) != (portion.fault == FramedAnswer::Fault::None), "a fault has a kind");
        if (portion.kind == Kind::Header) {
            require(m_outcome.header.isEmpty(), "a header comes once");
            m_outcome.header = m_answer.header().text();
            m_outcome.announced = m_answer.announcedLength();
            checkFields();
            if (m_skips)
                m_answer.skipBody();
            return;
        }
        if (portion.kind != Kind::Body) {
            m_outcome.last = portion;
            return;
        }
        require(!m_outcome.header.isEmpty() && !m_skips, "a body comes behind its header, unless it is skipped");
        require(portion.body.size() <= FramedAnswer::portionLimit, "portions are bounded");
        m_outcome.body += portion.body;
    }
    void checkFields() const
    {
        const HeaderFields& header = m_answer.header();
        require(header.status() >= 200 && header.status() <= 999, "interim answers are skipped");
        for (const char* const name : { "Location", "Set-Cookie", "Content-Type" }) {
            for (const QByteArrayView value : header.values(name))
                require(!value.contains('\r') && !value.contains('\n') && !value.contains('\0'), "a value is one line");
        }
    }

    FramedAnswer m_answer;
    const bool m_skips;
    Outcome m_outcome;
};

Outcome read(const QByteArrayList& pieces, bool decodes, bool skips)
{
    Reading reading(decodes, skips);
    for (const QByteArray& piece : pieces)
        reading.take(piece);
    return reading.end();
}

void checkSame(const Outcome& whole, const Outcome& cut)
{
    require(whole.header == cut.header, "cuts do not change the header");
    require(whole.body == cut.body, "cuts do not change the body");
    require(whole.last.kind == cut.last.kind && whole.last.fault == cut.last.fault, "cuts do not change the end");
    require(whole.announced == cut.announced, "cuts do not change the announced length");
    require(whole.isKept == cut.isKept, "cuts do not change whether the connection is kept");
}

} // namespace

/// Input: the lengths of the pieces in the first line, then an answer.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QByteArray lengths = input.line();
    const QByteArray& answer = input.rest();
    constexpr std::array ways { std::pair(true, false), std::pair(false, false), std::pair(true, true) };
    for (const auto& [decodes, skips] : ways) {
        const Outcome whole = read({ answer }, decodes, skips);
        checkSame(whole, read(inPieces(answer, lengths), decodes, skips));
        require(!whole.isKept || (whole.last.kind == Kind::End && !whole.hasSurplus), "a kept connection is clean");
        require(whole.last.kind != Kind::End || whole.announced < 0 || skips || whole.announced == whole.body.size(),
            "a body that ends well has its announced length");
    }
    return 0;
}
