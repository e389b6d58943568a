// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SearchFiles.h"

#include "base/FileDialogs.h"
#include "base/Messages.h"
#include "base/Shell.h"
#include "base/lang.h"
#include "results/twk.h"
#include "session/CurrentSearch.h"

#include <QDir>
#include <QFileInfo>

namespace {

QList<FileDialogs::FileType> fileTypes(const LanguageTable& language)
{
    return { { language.text("lang.filetype_twk"), QStringLiteral("*.twk") },
        { language.text("lang.filetype_all"), QStringLiteral("*") } };
}

} // namespace

SearchFiles::SearchFiles(CurrentSearch& search, const Seams& seams)
    : m_search(search)
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
    m_seams.fileDialogs.open(
        { LanguageTable::plain(m_seams.text("main.m_searchOpen")), fileTypes(m_seams.language), {}, {} },
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
    m_seams.fileDialogs.save({ LanguageTable::plain(m_seams.text("main.m_searchSaveAs")), fileTypes(m_seams.language),
                                 m_search.fileName(), QStringLiteral("twk") },
        [this](const QString& path) { m_search.save(path); });
}

bool SearchFiles::finish()
{
    m_hasFailed = false;
    m_search.finishSaving();
    return !m_hasFailed;
}

void SearchFiles::takeSaved(const QString& fileName, const std::optional<FileError>& error)
{
    m_hasFailed = m_hasFailed || error;
    if (error)
        complain("lang.errWhileSavingFile", QDir::toNativeSeparators(fileName) + u'\n' + error->text(m_seams.language));
}

void SearchFiles::takeOpened(
    const QString& fileName, const searchFile::LoadResult& result, const MimeTypeList& mimeTypes)
{
    const QString error = twk::errorText(result, m_seams.language);
    if (!error.isEmpty())
        complain("lang.errTitle", QDir::toNativeSeparators(fileName) + u'\n' + error);
    if (!searchFile::isUsable(result.error))
        return;
    warnOfSkippedLines(fileName, result);
    m_seams.shell.addRecentDocument(fileName);
    emit opened(mimeTypes);
    if (m_search.wantsCookies())
        m_seams.messages.confirm(
            { Messages::Sign::Question, m_seams.text("lang.question"), m_seams.text("more.fileWantsCookies") },
            [this] { m_search.allowCookies(); });
}

void SearchFiles::warnOfSkippedLines(const QString& fileName, const searchFile::LoadResult& result)
{
    constexpr qsizetype most = 10;
    if (result.skipped.isEmpty())
        return;
    QStringList warnings { QDir::toNativeSeparators(fileName) };
    for (const searchFile::SkippedLine& line : result.skipped.first(qMin(most, result.skipped.size())))
        warnings += m_seams.language.labelled(QString::number(line.number), twk::warningText(line, m_seams.language));
    if (result.skippedCount > most)
        warnings += m_seams.text("more.andMore").arg(result.skippedCount - most);
    complain("lang.note", warnings.join(u'\n'));
}

void SearchFiles::complain(const char* titleKey, const QString& message)
{
    m_seams.messages.tell({ Messages::Sign::Warning, m_seams.text(titleKey), message });
}
