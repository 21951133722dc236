// SPDX-License-Identifier: GPL-3.0-or-later
#include "maintenance/frmReplace.h"

#include "catalogue/Options.h"
#include "desktop/ScreenLook.h"
#include "ui_frmReplace.h"

#include <QLineEdit>
#include <QRadioButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** A box takes no double quotes: the statements put them around its text. */
void validate(QLineEdit &box)
{
    const QString text = withoutDoubleQuotes(box.text());
    if (text != box.text())
        box.setText(text);
}

} // namespace

frmReplace::frmReplace(const MaintenanceParts &parts, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmReplace>()), m_parts(parts)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmReplace::~frmReplace()
{
    // A box that loses the focus when it goes would call upon a screen that is gone before it.
    m_ui->txtOrig->disconnect(this);
    m_ui->txtNew->disconnect(this);
}

void frmReplace::wire()
{
    connect(m_ui->txtOrig, &QLineEdit::editingFinished, this, &frmReplace::txtOrig_Validate);
    connect(m_ui->txtNew, &QLineEdit::editingFinished, this, &frmReplace::txtNew_Validate);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmReplace::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmReplace::cmdCancel_Click);
}

void frmReplace::Form_Load()
{
    if (m_parts.services.options.TabletActive)
        sizeForFingers(*this);
    m_ui->txtOrig->setFocus();
}

void frmReplace::txtOrig_Validate()
{
    validate(*m_ui->txtOrig);
}

void frmReplace::txtNew_Validate()
{
    validate(*m_ui->txtNew);
}

std::vector<frmReplace::FieldOption> frmReplace::fieldOptions() const
{
    return {{m_ui->optPathName, u" tblContacts.PathName "_s},
            {m_ui->optArtistName, u" tblContacts.Artist "_s},
            {m_ui->optSongName, u" tblContacts.SongName "_s},
            {m_ui->optComposer, u" tblContacts.Composer "_s},
            {m_ui->optNotes, u" tblContacts.Notes "_s},
            {m_ui->optMiscField1, u" tblContacts.MiscField1 "_s},
            {m_ui->optMiscField2, u" tblContacts.MiscField2 "_s},
            {m_ui->optMiscField3, u" tblContacts.MiscField3 "_s},
            {m_ui->optCode, u" tblContacts.Code "_s},
            {m_ui->optMisc1Desc, u" tblContacts.MiscField1_Desc "_s},
            {m_ui->optMisc2Desc, u" tblContacts.MiscField2_Desc "_s},
            {m_ui->optMisc3Desc, u" tblContacts.MiscField3_Desc "_s},
            {m_ui->optID, u" tblContacts.ID "_s},
            {m_ui->optGenre, u" tblContacts.Genre "_s}};
}

QString frmReplace::chosenField() const
{
    const std::vector<FieldOption> options = fieldOptions();
    const auto pressed =
        std::ranges::find_if(options, [](const FieldOption &each) { return each.option->isChecked(); });
    return pressed == options.end() ? QString() : pressed->field;
}

void frmReplace::cmdOK_Click()
{
    // A key that presses the button leaves the focus, and the text unvalidated, in the box.
    txtOrig_Validate();
    txtNew_Validate();
    ReplaceRequest request{m_ui->txtOrig->text(), m_ui->txtNew->text(), chosenField()};
    work(m_parts.services.desktop, [&] { return SearchAndReplace(m_parts).run(request); });
    m_ui->txtOrig->setText(request.original.trimmed());
    m_ui->txtNew->setText(request.replacement.trimmed());
}

void frmReplace::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
