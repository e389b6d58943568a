// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

/// Reports the first SIGHUP, SIGINT or SIGTERM, except those that the program was started to ignore (as by nohup). The
/// second one ends the program at once. There is at most one such object. Not on Windows, which has other ways to end a
/// program with a window and one in a console.
class EndSignals final : public QObject {
    Q_OBJECT

public:
    explicit EndSignals(QObject* parent = nullptr);
    ~EndSignals() override;

signals:
    void received();
};
