// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/BodyBuffer.h"

#include <utility>

namespace {

constexpr qsizetype partSize = 1024 * 1024;

} // namespace

BodyBuffer::BodyBuffer(const QByteArray& body)
    : m_size(body.size())
    , m_text(body)
{
}

void BodyBuffer::append(const QByteArray& piece)
{
    m_size += piece.size();
    if (m_parts.empty()) {
        // Reserve nothing: most bodies are shorter than a part.
        m_parts.push_back(piece);
    } else if (m_parts.back().size() + piece.size() <= partSize) {
        m_parts.back() += piece;
    } else {
        m_parts.push_back(piece);
        m_parts.back().reserve(partSize);
    }
}

bool BodyBuffer::join()
{
    if (m_parts.empty())
        return true;
    if (m_text.isEmpty() && m_parts.size() == 1) {
        m_text = std::exchange(m_parts.front(), {});
    } else {
        m_text.reserve(m_size);
        m_text += m_parts.front();
    }
    m_parts.pop_front();
    return m_parts.empty();
}
