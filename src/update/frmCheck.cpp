// SPDX-License-Identifier: GPL-3.0-or-later
#include "update/frmCheck.h"

#include "catalogue/Catalogue.h"
#include "desktop/ChangeTableModel.h"
#include "desktop/Desktop.h"
#include "desktop/ScreenLook.h"
#include "songlist/DisplayedSet.h"
#include "songlist/InvalidFiles.h"
#include "songlist/MainScreen.h"
#include "ui_frmCheck.h"

#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

frmCheck::frmCheck(const UpdateParts &parts, std::function<void()> showUpdate, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmCheck>()), m_parts(parts),
      m_showUpdate(std::move(showUpdate))
{
    m_ui->setupUi(this);
    scaleFont(*m_ui->lblMessage, HeadingScale);
    connect(m_ui->listFindings, &QTreeWidget::itemSelectionChanged, this, &frmCheck::listFindings_Click);
    connect(m_ui->listFindings, &QTreeWidget::itemActivated, this, &frmCheck::cmdShow_Click);
    connect(m_ui->cmdShow, &QPushButton::clicked, this, &frmCheck::cmdShow_Click);
    connect(m_ui->cmdRepair, &QPushButton::clicked, this, &frmCheck::cmdRepair_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    const int character = fontMetrics().averageCharWidth();
    m_ui->listFindings->setColumnWidth(0, 12 * character);
    m_ui->listFindings->setColumnWidth(1, 46 * character);
    resize(QSize(130 * character, 24 * fontMetrics().lineSpacing()).boundedTo(roomFor(*this)));
    listFindings_Click();
}

frmCheck::~frmCheck() = default;

void frmCheck::showEvent(QShowEvent *event)
{
    ModalScreen::showEvent(event);
    if (std::exchange(m_hasLooked, true))
        return;
    QTimer::singleShot(0, this, [this] {
        work(m_parts.services.desktop, [this] {
            look();
            return false;
        });
    });
}

void frmCheck::look()
{
    const QScopedValueRollback busy(m_parts.busy, true);
    const auto wait = m_parts.services.desktop.ShowWorkingForm(windowTitle(), u"Please wait..."_s, false);
    wait->offerCancel();
    m_parts.services.desktop.letEventsRun();
    const auto goesOn = [&](const QString &what, qint64, qint64) {
        wait->setMsg(what);
        m_parts.services.desktop.letEventsRun();
        return !wait->isClosed();
    };
    m_findings = CatalogueCheck(m_parts, goesOn).run().value_or(std::vector<CheckFinding>());
    showFindings();
}

void frmCheck::showFindings()
{
    m_ui->listFindings->clear();
    std::ranges::stable_sort(m_findings, {}, [](const CheckFinding &finding) { return finding.count == 0; });
    qint64 kinds = 0;
    for (const CheckFinding &finding : m_findings) {
        auto *item =
            new QTreeWidgetItem(m_ui->listFindings, {QLocale().toString(finding.count), finding.what,
                                                     finding.count > 0 ? finding.advice : QString()});
        item->setTextAlignment(0, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(2, finding.advice);
        item->setDisabled(finding.count == 0);
        kinds += finding.count > 0 ? 1 : 0;
    }
    m_ui->lblMessage->setText(m_findings.empty() ? u"The check was stopped."_s
                              : kinds == 0       ? u"Nothing was found: all is as it should be."_s
                                                 : u"What to look at:"_s);
    if (kinds > 0)
        m_ui->listFindings->setCurrentItem(m_ui->listFindings->topLevelItem(0));
    listFindings_Click();
}

const CheckFinding *frmCheck::chosen() const
{
    const int row = m_ui->listFindings->indexOfTopLevelItem(m_ui->listFindings->currentItem());
    return row < 0 ? nullptr : &m_findings[static_cast<std::size_t>(row)];
}

void frmCheck::listFindings_Click()
{
    const CheckFinding *finding = chosen();
    m_ui->cmdShow->setEnabled(finding != nullptr && !finding->songs.empty());
    m_ui->cmdRepair->setEnabled(finding != nullptr && finding->count > 0 &&
                                finding->repair != CheckRepair::None);
    const bool isTracks = finding != nullptr && finding->repair == CheckRepair::RemoveTracks;
    m_ui->cmdRepair->setText(isTracks ? u"&Remove Tracks"_s : u"&Update From Disk ..."_s);
}

void frmCheck::cmdShow_Click()
{
    work(m_parts.services.desktop, [this] {
        const CheckFinding *finding = chosen();
        if (finding == nullptr || finding->songs.empty())
            return false;
        listInvalidFiles(*m_parts.services.catalogue.CatalogueDb, finding->songs);
        m_parts.set.invalidFileView(finding->what + u'.');
        return true;
    });
}

void frmCheck::cmdRepair_Click()
{
    const CheckFinding *finding = chosen();
    if (finding == nullptr)
        return;
    if (finding->repair == CheckRepair::RemoveTracks) {
        work(m_parts.services.desktop, [this] {
            removeTracks();
            return false;
        });
    } else {
        const auto showUpdate = m_showUpdate;
        accept();
        showUpdate();
    }
}

void frmCheck::removeTracks()
{
    dao::Database &database = *m_parts.services.catalogue.CatalogueDb;
    if (m_parts.services.desktop.MessageBox(
            u"%1 tracks whose songs were deleted will be removed from the play lists.\n\nGo on?"_s.arg(
                chosen()->count),
            windowTitle(), Icon::Question, Buttons::YesNo, Answer::No) != Answer::Yes)
        return;
    database.describeChange(u"Remove tracks without songs"_s);
    database.Execute(u"Delete * From tblPlayListDetail Where ContactRecordID > 0 And ContactRecordID Not In "
                     "(Select RecordID From tblContacts)"_s);
    look();
}

} // namespace quaverly
