// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <memory>

/// Reports that the system wants the program to end: by SIGHUP, SIGINT or SIGTERM, or by the end of a Windows session.
/// The system does not wait long, so whoever is told must not ask the user anything. A second signal ends the program
/// at once. There is at most one such object.
class EndRequest final : public QObject {
    Q_OBJECT

public:
    EndRequest();
    ~EndRequest() override;

signals:
    void received();

private:
    struct Watch;
    std::unique_ptr<Watch> m_watch; ///< what differs between systems
};
