// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SearchFiles.h"

#include "app/CurrentSearch.h"
#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/lang.h"
#include "results/twk.h"

#include <QDir>
#include <QFileInfo>

namespace {

QList<FileDialogs::FileType> fileTypes(const LanguageTable& language)
{
    return { { language.text("lang.filetype_twk"), QStringLiteral("*.twk") },
        { language.text("lang.filetype_all"), QStringLiteral("*") } };
}

} // namespace

SearchFiles::SearchFiles(CurrentSearch& search, const LanguageTable& language, const Seams& seams)
    : m_search(search)
    , m_language(language)
    , m_seams(seams)
{
    connect(&search, &CurrentSearch::opened, this, &SearchFiles::takeOpened);
    connect(&search, &CurrentSearch::saved, this, &SearchFiles::takeSaved);
}

void SearchFiles::open(const QString& fileName)
{
    m_search.open(QFileInfo(fileName).absoluteFilePath());
}

void SearchFiles::askToOpen()
{
    m_seams.fileDialogs.open({ LanguageTable::plain(text("main.m_searchOpen")), fileTypes(m_language), {}, {} },
        [this](const QString& path) { open(path); });
}

void SearchFiles::save()
{
    if (m_search.fileName().isEmpty())
        askToSave();
    else
        m_search.save(m_search.fileName());
}

void SearchFiles::askToSave()
{
    m_seams.fileDialogs.save({ LanguageTable::plain(text("main.m_searchSaveAs")), fileTypes(m_language),
                                 m_search.fileName(), QStringLiteral("twk") },
        [this](const QString& path) { m_search.save(path); });
}

bool SearchFiles::finish()
{
    m_hasFailed = false;
    m_search.finishSaving();
    return !m_hasFailed;
}

void SearchFiles::takeSaved(const QString& fileName, const std::optional<QString>& error)
{
    m_hasFailed = m_hasFailed || error;
    if (error)
        complain("lang.errWhileSavingFile", QDir::toNativeSeparators(fileName) + u'\n' + *error);
}

void SearchFiles::takeOpened(const QString& fileName, const SearchFile::LoadResult& result, const MimeListe& mimeTypes)
{
    const QString error = twk::errorText(result, m_language);
    if (!error.isEmpty())
        complain("lang.errTitle", QDir::toNativeSeparators(fileName) + u'\n' + error);
    if (!SearchFile::isUsable(result.error))
        return;
    warnOfSkippedLines(fileName, result);
    m_seams.shell.addRecentDocument(fileName);
    emit opened(mimeTypes);
}

void SearchFiles::warnOfSkippedLines(const QString& fileName, const SearchFile::LoadResult& result)
{
    constexpr qsizetype most = 10;
    if (result.skipped.isEmpty())
        return;
    QStringList warnings { QDir::toNativeSeparators(fileName) };
    for (const SearchFile::SkippedLine& line : result.skipped.first(qMin(most, result.skipped.size())))
        warnings += QString::number(line.number) + QLatin1String(": ") + twk::warningText(line, m_language);
    if (result.skippedCount > most)
        warnings += text("more.andMore").arg(result.skippedCount - most);
    complain("lang.note", warnings.join(u'\n'));
}

void SearchFiles::complain(const char* titleKey, const QString& message)
{
    m_seams.messages.tell({ Messages::Sign::Warning, text(titleKey), message });
}

QString SearchFiles::text(const char* key) const
{
    return m_language.text(key);
}
