// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/StepQueue.h"
#include "results/SearchFileReader.h"

#include <QObject>

/// Reads a search file between other events, beside the search that is still shown. Ends once, with `ended`.
class SearchOpening final : public QObject {
    Q_OBJECT

public:
    /// What the file does not name is as in `options` and `prefs`.
    SearchOpening(const QString& fileName, const SearchOptions& options, const RequestPrefs& prefs, QObject* parent);

    [[nodiscard]] const QString& fileName() const { return m_fileName; }
    [[nodiscard]] StoredSearch& search() { return m_search; }
    [[nodiscard]] const searchFile::LoadResult& result() const { return m_reader.result(); }

signals:
    void ended();

private:
    [[nodiscard]] bool readSome();

    QString m_fileName;
    StoredSearch m_search;
    SearchFileReader m_reader;
    StepQueue m_reading;
};
