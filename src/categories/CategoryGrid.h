// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "categories/CategoryStore.h"

#include <QTableView>

namespace quaverly {

class CategoryModel;

/** A list of categories, of which one is the current one while there are any. */
class CategoryGrid final : public QTableView
{
    Q_OBJECT

public:
    enum class Shows { Number, Name };
    struct Head
    {
        Shows shows;
        QString caption;
    };

    explicit CategoryGrid(QWidget *parent = nullptr);

    void setHeads(const QList<Head> &heads);
    /** The current category stays current, or the first becomes it. */
    void setCategories(const QList<Category> &categories);
    void sizeForFingers();

    /** Null without categories. */
    [[nodiscard]] const Category *current() const;
    [[nodiscard]] const QList<Category> &categories() const;
    void makeCurrent(qint64 number);
    void makeRowCurrent(int row);

Q_SIGNALS:
    /** A row was double-clicked, or Enter pressed on it. */
    void chosen();
    /** Only A to Z, large or small. */
    void letterTyped(QChar letter);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    CategoryModel *m_model;
};

} // namespace quaverly
