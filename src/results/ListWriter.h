// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/FileReplacement.h"
#include "results/ListFormat.h"

/// Writes a list file. An old file is replaced in one step at the end.
class ListWriter {
public:
    ListWriter(const QString& fileName, listFormat::Format format, const LanguageTable& language);

    void write(const FundStück& item);
    /// As `FileReplacement::commit`.
    [[nodiscard]] std::optional<FileError> commit();

private:
    FileReplacement m_file;
    listFormat::Format m_format;
    QByteArray m_lines; ///< not yet written to the file
};
