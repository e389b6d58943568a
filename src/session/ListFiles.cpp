// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ListFiles.h"

#include "base/ErrorReport.h"
#include "base/FileDialogs.h"
#include "base/lang.h"
#include "results/ListReader.h"
#include "results/ListWriter.h"
#include "session/CurrentSearch.h"

#include <QDir>

#include <memory>
#include <utility>

using listFormat::Format;

namespace {

QList<FileDialogs::FileType> fileTypes(Format format, const LanguageTable& language)
{
    const FileDialogs::FileType all { language.text("lang.filetype_all"), QStringLiteral("*") };
    switch (format) {
    case Format::Urls:
        return { { language.text("lang.filetype_txt"), QStringLiteral("*.txt") }, all };
    case Format::Csv:
        return { { language.text("lang.filetype_csv"), QStringLiteral("*.csv") }, all };
    }
    return {};
}

} // namespace

ListFiles::ListFiles(CurrentSearch& search, const Seams& seams)
    : m_search(search)
    , m_seams(seams)
{
    connect(&search, &CurrentSearch::imported, this, &ListFiles::takeImported);
    connect(&search, &CurrentSearch::aboutToDrop, &m_writing, &StepQueue::finish);
}

void ListFiles::askToImport(Format format)
{
    if (format == Format::Urls || std::exchange(m_hasNotedCsv, true)) {
        openDialog(format);
        return;
    }
    m_seams.messages.tell({ Messages::Sign::Information, m_seams.text("lang.note"), m_seams.text("lang.CSVNote") },
        [this, format] { openDialog(format); });
}

void ListFiles::openDialog(Format format)
{
    const char* const caption = format == Format::Csv ? "main.m_importCsv" : "main.m_importUrlList";
    m_seams.fileDialogs.open(
        { LanguageTable::plain(m_seams.text(caption)), fileTypes(format, m_seams.language), {}, {} },
        [this, format](const QString& path) {
            // A search may have been started while the dialog was there.
            if (m_search.status().canStart())
                m_search.importList(path, format);
        });
}

void ListFiles::takeImported(const QString& fileName, const ListReader& list)
{
    if (list.error())
        complain("lang.errWhileOpening", fileName, *list.error());
    if (!list.unusable().isEmpty()) {
        m_seams.messages.tell({ Messages::Sign::Warning, m_seams.text("lang.note"),
            list.unusable().note(fileName, "more.unusableLines", m_seams.language) });
    }
}

void ListFiles::askToExport(Format format, const Rows& rows)
{
    if (rows.selectedCount < 2) {
        saveDialog(format, rows.all);
        return;
    }
    using enum Messages::Answer;
    m_seams.messages.ask({ Messages::Sign::Question, m_seams.text("lang.question"),
                             m_seams.text("more.exportSelected").arg(rows.selectedCount) },
        { { Yes, No, Cancel }, Yes, Cancel }, [this, format, rows](Messages::Answer answer) {
            if (answer != Cancel)
                saveDialog(format, answer == Yes ? rows.selected : rows.all);
        });
}

void ListFiles::saveDialog(Format format, std::function<Items()> items)
{
    const bool csv = format == Format::Csv;
    const char* const caption = csv ? "main.m_exportAsCsv" : "main.m_exportAsUrlList";
    m_seams.fileDialogs.save({ LanguageTable::plain(m_seams.text(caption)), fileTypes(format, m_seams.language), {},
                                 csv ? QStringLiteral("csv") : QStringLiteral("txt") },
        [this, format, items = std::move(items)](const QString& path) { write(path, format, items()); });
}

void ListFiles::write(const QString& fileName, Format format, Items items)
{
    const auto file = std::make_shared<ListWriter>(fileName, format, m_seams.language);
    m_writing.add([this, file, fileName, items = std::move(items), next = size_t { 0 }]() mutable {
        if (next < items.size()) {
            file->write(*items[next++]);
            return true;
        }
        if (const auto error = file->commit()) {
            m_hasFailed = true;
            complain("lang.errWhileSavingFile", fileName, *error);
        }
        return false;
    });
}

bool ListFiles::finish()
{
    m_hasFailed = false;
    m_writing.finish();
    return !m_hasFailed;
}

void ListFiles::complain(const char* doing, const QString& fileName, const FileError& error)
{
    m_seams.messages.tell(errorReport(
        m_seams.language, doing, QDir::toNativeSeparators(fileName) + u'\n' + error.text(m_seams.language)));
}
