// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/frmMusicKinds.h"

#include "catalogue/KindsTaken.h"
#include "desktop/Desktop.h"
#include "desktop/ScreenLook.h"
#include "platform/shell/MusicKinds.h"
#include "ui_frmMusicKinds.h"

namespace quaverly {

frmMusicKinds::frmMusicKinds(Desktop &desktop, OptionsStore &store, bool tablet, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmMusicKinds>()), m_desktop(desktop), m_store(store)
{
    m_ui->setupUi(this);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmMusicKinds::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmMusicKinds::cmdCancel_Click);
    Form_Load(tablet);
}

frmMusicKinds::~frmMusicKinds() = default;

void frmMusicKinds::Form_Load(bool tablet)
{
    const QStringList leftOut = kindsLeftOut(m_store);
    for (const shell::MusicKind &kind : shell::musicKinds()) {
        auto *item = new QListWidgetItem(kind.extension, m_ui->lstKinds);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(leftOut.contains(kind.extension) ? Qt::Unchecked : Qt::Checked);
    }
    m_ui->lstKinds->setCurrentRow(0);
    if (tablet)
        sizeForFingers(*this);
}

void frmMusicKinds::cmdOK_Click()
{
    work(m_desktop, [this] {
        QStringList leftOut;
        for (int row = 0; row < m_ui->lstKinds->count(); ++row) {
            const QListWidgetItem &item = *m_ui->lstKinds->item(row);
            if (item.checkState() != Qt::Checked)
                leftOut.append(item.text());
        }
        keepKindsLeftOut(m_store, leftOut);
        return true;
    });
}

void frmMusicKinds::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
