// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/WindowFixture.h"

/// What the tests of attacks share. Each attack enters the way a real one would: by an answer, or by a file that the
/// user opens. The tests judge the results: files, requests, command lines.
class AttackFixture : public WindowFixture {
    Q_OBJECT

protected slots:
    void init();

protected:
    void restart();
    void openFile(const QByteArray& content);
    void download(int row);
    void downloadAgain();
    void waitForDownloads();
    void importCookies(const QByteArray& content);
    /// The files in a folder and all folders below it, by their paths from there.
    [[nodiscard]] static QStringList filesBelow(const QString& folder);
    /// The files in the target folder and outside of it, with paths from the folder above.
    [[nodiscard]] QStringList downloaded() const;

    QString m_target; ///< the target folder of downloads, as it was loaded
};
