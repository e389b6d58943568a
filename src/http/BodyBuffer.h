// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <deque>

/// Collects a body piece by piece and joins it to one text in bounded steps. A single growing array would copy all that
/// was received whenever it runs out of space, and the event loop would stand still meanwhile.
class BodyBuffer {
public:
    BodyBuffer() = default;
    /// A body that is one text already.
    explicit BodyBuffer(const QByteArray& body);

    void append(const QByteArray& piece);
    [[nodiscard]] qsizetype size() const { return m_size; }
    /// Joins up to one more mebibyte. True once the body is one text; nothing may be appended then.
    [[nodiscard]] bool join();
    /// The whole body, after `join` has returned true.
    [[nodiscard]] const QByteArray& text() const { return m_text; }

private:
    /// The pieces that are not in `m_text` yet, in parts of a mebibyte.
    std::deque<QByteArray> m_parts;
    qsizetype m_size = 0;
    QByteArray m_text;
};
