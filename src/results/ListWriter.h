// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileReplacement.h"
#include "results/ListFormat.h"

/// Writes a list of URLs, or of the columns of found items, to a file, which is replaced as a whole at the end.
class ListWriter {
public:
    ListWriter(const QString& fileName, listFormat::Format format, const LanguageTable& language);

    void write(const FundStück& item);
    /// Puts the file in its place. What the system says if that fails, or if writing has failed before.
    [[nodiscard]] std::optional<QString> commit();

private:
    FileReplacement m_file;
    listFormat::Format m_format;
    QByteArray m_lines; ///< those that are not in the file yet
};
