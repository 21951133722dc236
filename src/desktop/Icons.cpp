// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QPointer>
#include <QSvgRenderer>
#include <QWidget>

#include <memory>

using namespace Qt::StringLiterals;

// Outside any namespace, as Qt asks; a static library's resources are not found without it.
static void loadIconResource()
{
    Q_INIT_RESOURCE(icons);
}

namespace quaverly {

namespace {

QString fileOf(const QString &name)
{
    return u":/icons/"_s + name + u".svg"_s;
}

/** The drawing in one colour; its own colour only says where it is opaque. */
QPixmap drawn(const QString &name, const QSize &size, const QColor &colour)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer drawing(fileOf(name));
    drawing.setAspectRatioMode(Qt::KeepAspectRatio);
    drawing.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
    return pixmap;
}

class SymbolEngine final : public QIconEngine
{
public:
    SymbolEngine(QString name, const QWidget *control) : m_name(std::move(name)), m_control(control) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal ratio = painter->device()->devicePixelRatio();
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    /** @p size is in pixels of the device. */
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        if (size.isEmpty())
            return {};
        const QColor text = colour(mode);
        const QString key = u"quaverly/%1/%2x%3/%4"_s.arg(m_name)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(text.rgba(), 0, 16);
        QPixmap pixmap;
        if (!QPixmapCache::find(key, &pixmap)) {
            pixmap = drawn(m_name, size, text);
            QPixmapCache::insert(key, pixmap);
        }
        return pixmap;
    }

    [[nodiscard]] QIconEngine *clone() const override
    {
        return std::make_unique<SymbolEngine>(m_name, m_control).release();
    }
    [[nodiscard]] QString key() const override { return u"quaverly"_s; }
    QString iconName() override { return m_name; }
    bool isNull() override { return !QFile::exists(fileOf(m_name)); }

private:
    [[nodiscard]] QColor colour(QIcon::Mode mode) const
    {
        const QPalette palette = m_control ? m_control->palette() : QGuiApplication::palette();
        const QPalette::ColorRole text = m_control ? m_control->foregroundRole() : QPalette::ButtonText;
        switch (mode) {
        case QIcon::Disabled:
            return palette.color(QPalette::Disabled, text);
        case QIcon::Selected:
            return palette.color(QPalette::Active, QPalette::HighlightedText);
        default:
            return palette.color(QPalette::Active, text);
        }
    }

    QString m_name;
    QPointer<const QWidget> m_control;
};

QIcon symbol(const QString &name, const QWidget *control)
{
    loadIconResource();
    return QIcon(std::make_unique<SymbolEngine>(name, control).release());
}

} // namespace

QIcon icon(const QString &name)
{
    return symbol(name, nullptr);
}

QIcon icon(const QString &name, const QWidget &control)
{
    return symbol(name, &control);
}

QIcon programIcon()
{
    loadIconResource();
    QIcon drawing;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        QSvgRenderer(fileOf(u"quaverly"_s)).render(&painter);
        drawing.addPixmap(pixmap);
    }
    return drawing;
}

} // namespace quaverly
