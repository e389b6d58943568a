// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/lang.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

/// The control of a window by its name; ends the test program when there is none.
template <typename Control> Control& control(const QObject& window, const char* name)
{
    auto* const found = window.findChild<Control*>(QString::fromLatin1(name));
    if (!found)
        qFatal("There is no control %s.", name);
    return *found;
}

inline void click(const QObject& window, const char* button)
{
    control<QAbstractButton>(window, button).click();
}

/// Toggles a button as assistive technology does, without a click.
inline void toggle(const QObject& window, const char* button)
{
    QAccessible::queryAccessibleInterface(&control<QAbstractButton>(window, button))
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::toggleAction());
}

inline void choose(const QObject& window, const char* entry)
{
    control<QAction>(window, entry).trigger();
}

/// Drops URLs on a window; false if it takes none of them.
inline bool drop(QWidget& window, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, {});
    if (enter.isAccepted())
        QCoreApplication::sendEvent(&window, &drop);
    return enter.isAccepted();
}

/// The caption that a control shows; null for a control without one.
inline QString captionOf(const QObject* object)
{
    if (const auto* const action = qobject_cast<const QAction*>(object))
        return action->menu() ? QString() : action->text(); // The caption is that of the menu.
    if (const auto* const menu = qobject_cast<const QMenu*>(object))
        return menu->title();
    if (const auto* const button = qobject_cast<const QAbstractButton*>(object))
        return button->text();
    if (const auto* const label = qobject_cast<const QLabel*>(object))
        return label->text();
    if (const auto* const frame = qobject_cast<const QGroupBox*>(object))
        return frame->title();
    return {};
}

/// Whether a control is in the window itself, and not in another window that it owns.
inline bool isOf(const QObject* object, const QWidget& window)
{
    for (; object; object = object->parent()) {
        const auto* const widget = qobject_cast<const QWidget*>(object);
        if (widget && widget->isWindow() && !qobject_cast<const QMenu*>(object))
            return widget == &window;
    }
    return false;
}

/// The faults of a window's captions: keys without a control, captions that differ from the text of their key, and
/// captions without a key. The controls named in `fixed` need no key.
inline QStringList wrongCaptions(const QWidget& window, const LanguageTable& language, const QStringList& fixed)
{
    QStringList wrong;
    const QByteArray prefix = window.objectName().toUtf8() + '.';
    for (const QByteArray& key : language.keys()) {
        if (!key.startsWith(prefix) || key.contains(".ColumnHeaders("))
            continue;
        const auto* const object = window.findChild<QObject*>(QString::fromUtf8(key.sliced(prefix.size())));
        if (!object || captionOf(object) != language.text(key))
            wrong += QString::fromUtf8(key);
    }
    for (const QObject* const object : window.findChildren<QObject*>()) {
        const QString name = object->objectName();
        const QByteArray key = prefix + name.toUtf8();
        const bool known = language.contains(key) || !language.text("more." + key).isEmpty() || fixed.contains(name);
        const bool own = isOf(object, window) && !name.startsWith(QLatin1String("qt_"));
        if (own && !known && !captionOf(object).isEmpty())
            wrong += name + QLatin1String(" shows ") + captionOf(object);
    }
    return wrong;
}
