// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/window/Captions.h"

#include "base/allgemein.h"
#include "base/lang.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>

namespace {

void setCaption(QObject& control, const QString& caption)
{
    if (auto* const action = qobject_cast<QAction*>(&control))
        action->setText(caption);
    else if (auto* const menu = qobject_cast<QMenu*>(&control))
        menu->setTitle(caption);
    else if (auto* const button = qobject_cast<QAbstractButton*>(&control))
        button->setText(caption);
    else if (auto* const label = qobject_cast<QLabel*>(&control))
        label->setText(caption);
    else if (auto* const frame = qobject_cast<QGroupBox*>(&control))
        frame->setTitle(caption);
}

bool hasLabel(const QWidget& control)
{
    const auto labels = control.parent()->findChildren<const QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) { return label->buddy() == &control; });
}

/// The text of a "more." key is the caption of a label, an action or a menu, and of a push button that has no other. Of
/// other controls it is the tool tip, and their name for assistive technology if nothing else names them.
void setAddition(QObject& control, const QString& text, bool hasCaption)
{
    const bool isLabel = qobject_cast<QLabel*>(&control) || qobject_cast<QAction*>(&control)
        || qobject_cast<QMenu*>(&control) || (qobject_cast<QPushButton*>(&control) && !hasCaption);
    if (isLabel) {
        setCaption(control, text);
    } else if (auto* const widget = qobject_cast<QWidget*>(&control)) {
        widget->setToolTip(text);
        if (!hasCaption && !hasLabel(*widget))
            widget->setAccessibleName(text);
    }
}

/// Whether an object is another window, which sets its own captions. A menu is none.
bool isOtherWindow(const QObject* object)
{
    const auto* const widget = qobject_cast<const QWidget*>(object);
    return widget && widget->isWindow() && !qobject_cast<const QMenu*>(object);
}

} // namespace

void captions::nameArrays(QObject& window)
{
    static const QRegularExpression index(QStringLiteral("_([0-9]+)$"));
    for (QObject* const control : window.findChildren<QObject*>())
        control->setObjectName(control->objectName().replace(index, QStringLiteral("(\\1)")));
}

void captions::apply(QWidget& window, const LanguageTable& language)
{
    if (const QByteArray key = window.objectName().toUtf8(); language.contains(key))
        window.setWindowTitle(language.text(key));
    apply(window, window.objectName(), language);
}

void captions::apply(QObject& part, const QString& windowName, const LanguageTable& language)
{
    const QByteArray key = QString(windowName + u'.' + part.objectName()).toUtf8();
    const bool hasCaption = language.contains(key);
    if (hasCaption)
        setCaption(part, language.text(key));
    if (const QString addition = language.text("more." + key); !addition.isEmpty())
        setAddition(part, addition, hasCaption);
    auto* const widget = qobject_cast<QWidget*>(&part);
    if (const QString name = language.text("more.name." + key); widget && !name.isEmpty())
        widget->setAccessibleName(name);
    for (QObject* const child : part.children()) {
        if (!isOtherWindow(child))
            apply(*child, windowName, language);
    }
}

QString captions::toolTip(const QString& foreign)
{
    constexpr qsizetype longest = 500;
    const QString visible = allgemein::withVisibleControls(foreign);
    const QString shown = visible.size() <= longest ? visible : visible.left(longest) + QChar(0x2026);
    return QLatin1String("<qt>") + shown.toHtmlEscaped() + QLatin1String("</qt>");
}
