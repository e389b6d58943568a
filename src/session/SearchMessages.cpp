// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SearchMessages.h"

#include "base/Messages.h"
#include "base/allgemein.h"
#include "base/lang.h"
#include "results/twk.h"
#include "session/Session.h"

#include <QLocale>

SearchMessages::SearchMessages(Session& session, const Seams& seams)
    : m_session(session)
    , m_seams(seams)
{
    connect(&session.search, &SearchRun::reported, this, [this](const FundKnoten* node, const FetchReport& report) {
        if (node == m_session.foundItems.getStart())
            m_startReport = report;
    });
    connect(&session.search, &SearchRun::finished, this, &SearchMessages::onFinished);
    connect(&session.search, &SearchRun::limitReached, this, [this](SearchLimit limit) {
        m_seams.messages.tell({ Messages::Sign::Warning, m_seams.text("lang.note"),
            limitText(limit, m_session.search.limits(), m_seams.language) });
    });
}

void SearchMessages::onFinished()
{
    const FundKnoten* const start = m_session.foundItems.getStart();
    if (m_session.foundItems.getAnzahl() != 1 || start->inhalt.zustand != FetchState::Failed)
        return;
    m_seams.messages.tell({ Messages::Sign::Warning, m_seams.text("lang.note"),
        m_seams.text("more.startUnreachable") + u'\n' + allgemein::shownText(start->inhalt.adresse) + u'\n'
            + twk::stateText(m_startReport, m_seams.language) });
}

QString SearchMessages::limitText(SearchLimit limit, const SearchLimits& limits, const LanguageTable& language)
{
    constexpr qint64 mebibyte = 1024 * 1024;
    const QLocale locale = QLocale::system();
    switch (limit) {
    case SearchLimit::Items:
        return language.text("more.tooManyUrls").arg(locale.toString(limits.items));
    case SearchLimit::Bytes:
        return language.text("more.tooMuchMemory").arg(locale.toString(limits.bytes / mebibyte));
    }
    return {};
}
