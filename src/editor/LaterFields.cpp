// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/LaterFields.h"

#include "catalogue/SongFields.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace quaverly {

namespace {

/** Of a field that needs no more room than a number. */
constexpr int ShortWidth = 20;
constexpr int ShortColumn = 2;

QLineEdit *lineFor(const SongField &field, QWidget &screen, QGridLayout &layout, int row, int column)
{
    auto *label = new QLabel(field.heading, &screen);
    label->setObjectName(QLatin1StringView("lbl") + field.name);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *line = new QLineEdit(&screen);
    line->setObjectName(QLatin1StringView("txt") + field.name);
    line->setAccessibleName(field.heading);
    label->setBuddy(line);
    layout.addWidget(label, row, column);
    layout.addWidget(line, row, column + 1);
    return line;
}

} // namespace

void addLaterFields(QWidget &screen, QGridLayout &layout, QWidget *before)
{
    int row = layout.rowCount() - 1;
    for (const SongField &field : laterFields()) {
        if (field.type != dao::FieldType::Text)
            continue;
        const bool beside = field.width <= ShortWidth && layout.itemAtPosition(row, ShortColumn) == nullptr;
        if (!beside)
            ++row;
        QLineEdit *line = lineFor(field, screen, layout, row, beside ? ShortColumn : 0);
        QWidget::setTabOrder(before, line);
        before = line;
    }
}

} // namespace quaverly
