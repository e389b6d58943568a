// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/ListFormat.h"

#include <QSaveFile>

/// Writes a list of URLs, or of the columns of found items, to a file, which is replaced as a whole at the end.
class ListWriter {
public:
    ListWriter(const QString& fileName, listFormat::Format format, const LanguageTable& language);

    void write(const FundStück& item);
    /// Puts the file in its place. What the system says if that fails, or if writing has failed before.
    [[nodiscard]] std::optional<QString> commit();

private:
    void writeLine(const QByteArray& line);

    QSaveFile m_file;
    listFormat::Format m_format;
    bool m_isWhole;
};
