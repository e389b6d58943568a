// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <deque>

/// A body as it arrives, made into one text in bounded steps. A single growing array would copy everything received so
/// far whenever it runs out of space, and the event loop would stand still for it.
class BodyBuffer {
public:
    BodyBuffer() = default;
    /// A body that is one text already.
    BodyBuffer(const QByteArray& body);

    void append(const QByteArray& piece);
    [[nodiscard]] qsizetype size() const { return m_size; }
    /// Moves up to a mebibyte into its place. True once the body is one text; nothing may be appended then.
    [[nodiscard]] bool join();
    /// The whole body, after `join` has returned true.
    [[nodiscard]] const QByteArray& text() const { return m_text; }

private:
    /// What arrived and is not yet in `m_text`, in parts of a mebibyte.
    std::deque<QByteArray> m_parts;
    qsizetype m_size = 0;
    QByteArray m_text;
};
