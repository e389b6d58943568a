// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SearchOpening.h"

namespace {

/// How long the reading runs before other events get their turn.
constexpr int sliceMilliseconds = 8;

} // namespace

SearchOpening::SearchOpening(
    const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, QObject* parent)
    : QObject(parent)
    , m_fileName(fileName)
    , m_search { options, prefs, {}, {} }
    , m_reader(fileName, m_search)
{
    connect(&m_nextSlice, &QTimer::timeout, this, &SearchOpening::readSlice);
    m_nextSlice.start(0);
}

void SearchOpening::readSlice()
{
    if (!m_reader.readFor(sliceMilliseconds))
        return;
    m_nextSlice.stop();
    emit ended();
}
