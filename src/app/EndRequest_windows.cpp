// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>

#include <windows.h>

/// Looks for the message that a Windows session ends. The system ends the program soon after it is handled.
struct EndRequest::Watch final : QAbstractNativeEventFilter {
    explicit Watch(EndRequest& owner)
        : request(owner)
    {
    }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        const auto* const event = static_cast<const MSG*>(message);
        // Every window gets the message, but the program ends once.
        if (event->message == WM_ENDSESSION && event->wParam != 0 && !isReported) {
            isReported = true;
            emit request.received();
        }
        return false;
    }

    EndRequest& request;
    bool isReported = false;
};

EndRequest::EndRequest()
    : m_watch(std::make_unique<Watch>(*this))
{
    QCoreApplication::instance()->installNativeEventFilter(m_watch.get());
}

EndRequest::~EndRequest() = default; // The filter removes itself.
