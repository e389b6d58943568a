// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/Text.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Each fuzzer implements this function. It hands the bytes to its reader as if they came from a server or a file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Aborts if a condition is false that must always hold. `what` states the condition.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s\n", what);
    std::abort();
}

/// An input in parts that a person can write in an editor: lines of parameters, then the bytes to read.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
    {
    }

    /// Takes the text up to the next `end`, and removes that `end`; takes all of the rest if there is none.
    QByteArray upTo(QByteArrayView end)
    {
        const qsizetype at = m_rest.indexOf(end);
        const QByteArray part = at < 0 ? m_rest : m_rest.first(at);
        m_rest = at < 0 ? QByteArray() : m_rest.sliced(at + end.size());
        return part;
    }
    QByteArray line() { return upTo("\n"); }
    [[nodiscard]] const QByteArray& rest() const { return m_rest; }

private:
    QByteArray m_rest;
};

/// Cuts a text into pieces whose lengths are the bytes of `lengths`, repeated. Without lengths there is one piece.
inline QByteArrayList inPieces(const QByteArray& text, const QByteArray& lengths)
{
    QByteArrayList pieces;
    qsizetype start = 0;
    for (qsizetype number = 0; start < text.size(); ++number) {
        const qsizetype length =
            lengths.isEmpty() ? text.size() : qMax<qsizetype>(1, static_cast<quint8>(lengths[number % lengths.size()]));
        pieces += text.mid(start, length);
        start += length;
    }
    return pieces;
}

/// A file name in a folder that is removed at the end of the program.
inline QString fileNamed(const char* name)
{
    static const QTemporaryDir folder;
    return folder.filePath(QString::fromLatin1(name));
}
/// Writes `content` to such a file and returns its name.
inline QString fileWith(const QByteArray& content, const char* name = "input")
{
    const QString fileName = fileNamed(name);
    require(writeFile(fileName, content), "a temporary file can be written");
    return fileName;
}
