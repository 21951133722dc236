// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/frmFontForm.h"

#include "catalogue/Options.h"
#include "catalogue/ScreenFont.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "platform/text/Text.h"
#include "ui_frmFontForm.h"

#include <QFontDatabase>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int PreviewLines = 3;
constexpr double PreviewScale = 1.3;

QStringList fontNames()
{
    QStringList names = QFontDatabase::families();
    names.removeIf([](const QString &name) { return QFontDatabase::isPrivateFamily(name); });
    return names;
}

} // namespace

frmFontForm::frmFontForm(Desktop &desktop, Options &options, OptionsStore &store, QWidget *parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmFontForm>()), m_desktop(desktop), m_options(options),
      m_store(store)
{
    m_ui->setupUi(this);
    wire();
    Form_Load();
}

frmFontForm::~frmFontForm() = default;

void frmFontForm::showModally()
{
    setAttribute(Qt::WA_DeleteOnClose);
    open();
}

void frmFontForm::wire()
{
    connect(m_ui->cmbFonts, &QComboBox::currentTextChanged, this, &frmFontForm::preview);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmFontForm::cmdOK_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &frmFontForm::cmdCancel_Click);
}

void frmFontForm::Form_Load()
{
    scaleFont(*m_ui->lblPreview, PreviewScale);
    // Fixed, so that the screen keeps its size whatever font is looked at.
    m_ui->lblPreview->setFixedHeight(PreviewLines * m_ui->lblPreview->fontMetrics().lineSpacing());
    m_ui->cmbFonts->addItems(fontNames());
    // A font that this machine lacks is shown all the same: it is the one that was chosen.
    m_ui->cmbFonts->setCurrentIndex(m_ui->cmbFonts->findText(m_options.ScreenFont, Qt::MatchFixedString));
    m_ui->cmbFonts->setEditText(m_options.ScreenFont);
    m_ui->cmbFonts->lineEdit()->selectAll();
    if (m_options.TabletActive)
        sizeForFingers(*this);
}

void frmFontForm::preview(const QString &name)
{
    QFont font = m_ui->lblPreview->font();
    font.setFamily(name);
    m_ui->lblPreview->setFont(font);
}

QString frmFontForm::chosenName() const
{
    const QString typed = m_ui->cmbFonts->currentText().trimmed();
    const int known = m_ui->cmbFonts->findText(typed, Qt::MatchFixedString);
    return known < 0 ? typed : m_ui->cmbFonts->itemText(known);
}

void frmFontForm::takeFont(const QString &name)
{
    saveOption(m_store, keys::Font, name);
    m_options.ScreenFont = name;
    applyScreenFont(name);
}

void frmFontForm::cmdOK_Click()
{
    const QString name = chosenName();
    const bool done = guarded(m_desktop, windowTitle(), [&] {
        if (isGreaterThanBlank(name))
            takeFont(name);
    });
    if (done)
        accept();
}

void frmFontForm::cmdCancel_Click()
{
    reject();
}

} // namespace quaverly
