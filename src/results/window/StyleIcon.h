// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QIcon>
#include <QStyle>

/// One of the style's icons. It is loaded when it is first shown, since that takes a millisecond.
class StyleIcon {
public:
    explicit StyleIcon(QStyle::StandardPixmap which)
        : m_which(which)
    {
    }

    [[nodiscard]] const QIcon& icon() const
    {
        if (m_icon.isNull())
            m_icon = QApplication::style()->standardIcon(m_which);
        return m_icon;
    }

private:
    QStyle::StandardPixmap m_which;
    mutable QIcon m_icon;
};
