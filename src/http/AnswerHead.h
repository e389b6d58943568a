// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>

/// The fields of an answer's header that the program uses.
struct AnswerHead {
    qint32 status = 0;
    qint64 length = -1; ///< of the body in bytes, as announced; -1 when unknown
    QByteArray type; ///< with its parameters; "?" without the field
    QByteArray language;
    QByteArray location;
    QByteArrayList cookies; ///< the values of all Set-Cookie fields
};
