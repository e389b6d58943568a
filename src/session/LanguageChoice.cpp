// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/LanguageChoice.h"

#include "base/LanguageFile.h"
#include "base/Messages.h"
#include "base/allgemein.h"

LanguageChoice::LanguageChoice(LanguageTable& table, Messages& messages)
    : m_table(table)
    , m_messages(messages)
    , m_index(table.builtIn())
{
}

LanguageChoice::~LanguageChoice() = default;

void LanguageChoice::selectBuiltIn(int index)
{
    if (!LanguageTable::isBuiltIn(index))
        return;
    m_reading.reset();
    m_index = index;
    m_fileName.clear();
    m_table.selectBuiltIn(index);
}

void LanguageChoice::load(const QString& fileName)
{
    m_reading = std::make_unique<LanguageFile>(fileName, m_table);
    if (m_reading->isOpen()) {
        m_index = file;
        m_fileName = fileName;
    }
    readOn();
}

void LanguageChoice::resume(const QString& fileName)
{
    m_index = file;
    m_fileName = fileName;
    load(fileName);
}

// The messages are fixed English texts: the table is just being changed, perhaps wrongly.
void LanguageChoice::readOn()
{
    constexpr qsizetype longestKey = 100;
    const QString title = QStringLiteral("Parsing Error");
    switch (m_reading->read()) {
    case LanguageFile::Step::End:
        m_reading.reset();
        break;
    case LanguageFile::Step::Failed:
        m_messages.tell({ Messages::Sign::Warning, title,
            QStringLiteral("Error while loading language file\n%1").arg(m_reading->place()) });
        m_reading.reset();
        break;
    case LanguageFile::Step::UnknownKey:
        m_messages.ask(
            { Messages::Sign::Warning, title,
                QStringLiteral("Not a valid l-Value for Translation: %1\nContinue loading Language-file?\n%2")
                    .arg(allgemein::shownText(m_reading->key().left(longestKey)), m_reading->place()) },
            [this, asked = m_reading.get()](bool goOn) {
                // Another language may have been chosen meanwhile.
                if (asked != m_reading.get())
                    return;
                if (goOn)
                    readOn();
                else
                    m_reading.reset();
            });
        break;
    }
}
