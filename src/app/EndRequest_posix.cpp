// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EndRequest.h"

#include "base/EndSignals.h"

struct EndRequest::Watch {
    EndSignals endSignals;
};

EndRequest::EndRequest()
    : m_watch(std::make_unique<Watch>())
{
    connect(&m_watch->endSignals, &EndSignals::received, this, &EndRequest::received);
}

EndRequest::~EndRequest() = default;
