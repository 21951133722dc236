// SPDX-License-Identifier: GPL-3.0-or-later
#include "playlists/frmPlayListHeader.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "ui_frmPlayListHeader.h"

using namespace Qt::StringLiterals;

namespace quaverly {

frmPlayListHeader::frmPlayListHeader(Desktop &desktop, PlayListStore &lists, const Options &options,
                                     const std::optional<PlayListName> &edited, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPlayListHeader>()), m_desktop(desktop), m_lists(lists),
      m_headers(desktop, lists), m_edited(edited)
{
    m_ui->setupUi(this);
    Form_Load(options);
    wire();
}

frmPlayListHeader::~frmPlayListHeader() = default;

void frmPlayListHeader::wire()
{
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmPlayListHeader::cmdOK_Click);
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, &frmPlayListHeader::cmdDelete_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmPlayListHeader::reject);
}

void frmPlayListHeader::Form_Load(const Options &options)
{
    m_ui->cmdDelete->setVisible(m_edited.has_value());
    if (m_edited) {
        loadEdited();
    } else {
        setWindowTitle(u"Add a new Play List"_s);
        m_ui->cmdOK->setText(u"Add New Play List"_s);
    }
    if (options.TabletActive)
        sizeForFingers(*this);
}

void frmPlayListHeader::loadEdited()
{
    setWindowTitle(u"Edit an existing Play List"_s);
    m_ui->txtPlayListName->setText(m_edited->ListName);
    if (const auto header = m_lists.headerOfName(m_edited->ListName, m_edited->ListID)) {
        m_ui->txtPlayListName->setText(header->ListName);
        m_ui->txtNotes->setPlainText(header->Notes);
        m_EditListID = header->ListID;
    }
}

void frmPlayListHeader::cmdOK_Click()
{
    bool done = false;
    guarded(m_desktop, windowTitle(), [&] {
        m_ui->txtPlayListName->setText(singleQuotes(m_ui->txtPlayListName->text()));
        const QString name = PlayListHeaders::keptName(m_ui->txtPlayListName->text());
        done = m_edited ? editList(name) : addList(name);
    });
    if (done)
        accept();
}

bool frmPlayListHeader::addList(const QString &name)
{
    if (!m_headers.add(name, m_ui->txtNotes->toPlainText())) {
        m_ui->txtPlayListName->setFocus();
        return false;
    }
    Q_EMIT added(name);
    m_headers.tellAdded(name);
    return true;
}

bool frmPlayListHeader::editList(const QString &name)
{
    if (!m_headers.edit({m_EditListID, name, m_ui->txtNotes->toPlainText()}, m_edited->ListName))
        return false;
    Q_EMIT edited(name);
    return true;
}

void frmPlayListHeader::cmdDelete_Click()
{
    bool done = false;
    guarded(m_desktop, windowTitle(), [&] {
        done = m_headers.deleteList(m_EditListID, u"Are you sure you want to delete this play list?"_s);
        if (done)
            Q_EMIT deleted();
    });
    if (done)
        accept();
}

} // namespace quaverly
