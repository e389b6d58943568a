// SPDX-License-Identifier: GPL-3.0-or-later
#include "http/newExchange.h"

#include "http/Connections.h"
#include "http/KeptExchange.h"
#include "http/PlainExchange.h"
#include "http/WebRules.h"

std::unique_ptr<HttpExchange> newExchange(Connections& connections)
{
    if (connections.rules().keepsConnections)
        return std::make_unique<KeptExchange>(connections);
    return std::make_unique<PlainExchange>(connections.rules());
}
