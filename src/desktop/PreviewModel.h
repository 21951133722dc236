// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ChangeTableModel.h"

namespace quaverly {

/** The rows of a preview, each with its tick. */
class PreviewModel final : public ChangeTableModel
{
public:
    /** @p preview outlives the model. */
    explicit PreviewModel(Preview &preview, QObject *parent = nullptr);

    enum class Shows { All, Possible, Obstructed };
    void show(Shows rows);

    /** The preview's number of a row of the table. */
    [[nodiscard]] int place(const QModelIndex &index) const { return m_first + index.row(); }
    /** The ticks have changed, and what the rows say with them. */
    void showTicks();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;

protected:
    [[nodiscard]] ChangedRowTexts fetch(int row) const override { return m_preview.row(m_first + row); }

private:
    Preview &m_preview;
    int m_first = 0;
    int m_end = 0;
};

} // namespace quaverly
