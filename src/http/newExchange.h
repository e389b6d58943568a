// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

class Connections;
class HttpExchange;

/// An exchange that speaks as the rules of `connections` say now. The connections must outlive it.
[[nodiscard]] std::unique_ptr<HttpExchange> newExchange(Connections& connections);
