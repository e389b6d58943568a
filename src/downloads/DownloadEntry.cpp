// SPDX-License-Identifier: GPL-3.0-or-later
#include "downloads/DownloadEntry.h"

QByteArray letterOf(DownloadTag tag)
{
    switch (tag) {
    case DownloadTag::None:
        return {};
    case DownloadTag::Waiting:
        return "W";
    case DownloadTag::Running:
        return "V";
    case DownloadTag::Complete:
        return "C";
    case DownloadTag::Warning:
        return "S";
    case DownloadTag::Failed:
        return "F";
    }
    return {};
}
