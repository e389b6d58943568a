// SPDX-License-Identifier: GPL-3.0-or-later
// Ends any Qt program once its window is drawn and its event loop has nothing left to do, so that its start can be
// timed from outside. Qt loads this plug-in itself: QT_QPA_GENERIC_PLUGINS=first_paint.
#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace {

/// After this many passes of the event loop, work that the program put off until after the first drawing is done too.
constexpr int passes = 3;

class FirstPaint final : public QObject {
protected:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && object->isWidgetType() && static_cast<QWidget*>(object)->isWindow()
            && !m_countdown.isActive())
            start();
        return false;
    }

private:
    void start()
    {
        connect(&m_countdown, &QTimer::timeout, this, [this] {
            if (++m_passed == passes)
                std::_Exit(0);
        });
        m_countdown.start(0);
    }

    QTimer m_countdown;
    int m_passed = 0;
};

} // namespace

class FirstPaintPlugin final : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "first_paint.json")

public:
    QObject* create(const QString&, const QString&) override
    {
        auto* const filter = new FirstPaint;
        QCoreApplication::instance()->installEventFilter(filter);
        return filter;
    }
};

#include "first_paint.moc"
