// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/frmChangeFilePath.h"

#include "catalogue/Catalogue.h"
#include "catalogue/Options.h"
#include "desktop/FileHelpers.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "maintenance/LocationChange.h"
#include "ui_frmChangeFilePath.h"

#include <QCompleter>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quaverly {

frmChangeFilePath::frmChangeFilePath(const MaintenanceParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmChangeFilePath>()), m_parts(parts)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmChangeFilePath::~frmChangeFilePath() = default;

void frmChangeFilePath::wire()
{
    connect(m_ui->cmdBrowseOrig, &QPushButton::clicked, this, &frmChangeFilePath::cmdBrowseOrig_Click);
    connect(m_ui->cmdBrowseNew, &QPushButton::clicked, this, &frmChangeFilePath::cmdBrowseNew_Click);
    connect(m_ui->OKButton, &QPushButton::clicked, this, &frmChangeFilePath::OKButton_Click);
    connect(m_ui->CancelButton, &QPushButton::clicked, this, &frmChangeFilePath::CancelButton_Click);
}

void frmChangeFilePath::Form_Load()
{
    showText(*m_ui->lblPurpose, m_ui->lblPurpose->text());
    showText(*m_ui->lblNote, m_ui->lblNote->text());
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    offerPlaces();
    m_ui->txtOrigPath->setFocus();
}

// What stands in the catalogue: typed from memory, it would be found in no file name.
void frmChangeFilePath::offerPlaces()
{
    static_cast<void>(guarded(m_parts.services.desktop, windowTitle(), [this] {
        const Hourglass hourglass(m_parts.services.desktop);
        const QStringList places = musicPlaces(*m_parts.services.catalogue.CatalogueDb);
        if (places.isEmpty())
            return;
        auto *completer = new QCompleter(places, this);
        completer->setFilterMode(Qt::MatchContains);
        completer->setCaseSensitivity(Qt::CaseInsensitive);
        m_ui->txtOrigPath->setCompleter(completer);
        m_ui->txtOrigPath->setText(places.first());
        m_ui->txtOrigPath->selectAll();
    }));
}

void frmChangeFilePath::cmdBrowseOrig_Click()
{
    browse(u"Pick the original Folder"_s, *m_ui->txtOrigPath);
}

void frmChangeFilePath::cmdBrowseNew_Click()
{
    browse(u"Pick the new Folder"_s, *m_ui->txtNewPath);
}

void frmChangeFilePath::browse(const QString &prompt, QLineEdit &box)
{
    guarded(m_parts.services.desktop, windowTitle(), [&] {
        const QString folder =
            m_parts.services.desktop.BrowseForFolder(prompt, u"Select a Folder"_s, box.text());
        if (!folder.isEmpty())
            box.setText(EnsureBackslash(folder));
    });
}

void frmChangeFilePath::OKButton_Click()
{
    work(m_parts.services.desktop, [this] {
        return LocationChange(m_parts).changeFilePaths(
            {.original = m_ui->txtOrigPath->text(), .replacement = m_ui->txtNewPath->text()});
    });
}

void frmChangeFilePath::CancelButton_Click()
{
    reject();
}

} // namespace quaverly
