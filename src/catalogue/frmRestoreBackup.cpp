// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/frmRestoreBackup.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmRestoreBackup.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int DateColumn = 0;
constexpr int CommandColumn = 1;
constexpr int SongsColumn = 2;
constexpr int SizeColumn = 3;
constexpr int RowsInSight = 8;
/** Characters between two columns. */
constexpr int ColumnGap = 3;

} // namespace

frmRestoreBackup::frmRestoreBackup(Desktop &desktop, const RestoreBackup &restore, bool tablet,
                                   QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmRestoreBackup>()), m_desktop(desktop),
      m_restore(restore)
{
    m_ui->setupUi(this);
    wire();
    guarded(m_desktop, windowTitle(), [this, tablet] { Form_Load(tablet); });
}

frmRestoreBackup::~frmRestoreBackup() = default;

void frmRestoreBackup::wire()
{
    connect(m_ui->listBackups, &QTreeWidget::itemSelectionChanged, this,
            &frmRestoreBackup::listBackups_Click);
    connect(m_ui->listBackups, &QTreeWidget::itemDoubleClicked, this, &frmRestoreBackup::cmdRestore_Click);
    connect(m_ui->cmdRestore, &QPushButton::clicked, this, &frmRestoreBackup::cmdRestore_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmRestoreBackup::cmdCancel_Click);
}

void frmRestoreBackup::Form_Load(bool tablet)
{
    m_copies = m_restore.copies();
    showText(*m_ui->lblMessage, RestoreBackup::explanation(!m_copies.empty()));
    for (const Backup &backup : m_copies) {
        auto *row = new QTreeWidgetItem(m_ui->listBackups, RestoreBackup::columns(backup));
        if (tablet)
            row->setSizeHint(DateColumn, {0, FingerHeight});
    }
    layOutColumns();
    m_ui->listBackups->setEnabled(!m_copies.empty());
    m_ui->listBackups->setCurrentItem(m_ui->listBackups->topLevelItem(0));
    listBackups_Click();
    if (tablet)
        sizeForFingers(*this);
}

void frmRestoreBackup::layOutColumns()
{
    QTreeWidget &list = *m_ui->listBackups;
    for (const int column : {DateColumn, SongsColumn, SizeColumn}) {
        const Qt::Alignment side = column == DateColumn ? Qt::AlignLeft : Qt::AlignRight;
        list.headerItem()->setTextAlignment(column, side | Qt::AlignVCenter);
        for (int row = 0; row < list.topLevelItemCount(); ++row)
            list.topLevelItem(row)->setTextAlignment(column, side | Qt::AlignVCenter);
        list.resizeColumnToContents(column);
        list.setColumnWidth(column, list.columnWidth(column) + ColumnGap * fontMetrics().averageCharWidth());
    }
    list.header()->setSectionResizeMode(CommandColumn, QHeaderView::Stretch);
    list.setMinimumHeight((RowsInSight + 2) * fontMetrics().lineSpacing());
}

void frmRestoreBackup::listBackups_Click()
{
    m_ui->cmdRestore->setEnabled(!m_ui->listBackups->selectedItems().isEmpty());
}

void frmRestoreBackup::cmdRestore_Click()
{
    const int row = m_ui->listBackups->indexOfTopLevelItem(m_ui->listBackups->currentItem());
    if (row < 0)
        return;
    const Backup backup = m_copies[static_cast<std::size_t>(row)];
    bool chosen = false;
    guarded(m_desktop, windowTitle(), [&] { chosen = m_restore.mayRestore(backup); });
    if (!chosen)
        return;
    accept();
    Q_EMIT restoreWanted(backup);
}

void frmRestoreBackup::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
