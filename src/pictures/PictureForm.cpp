// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/PictureForm.h"

#include "catalogue/Options.h"
#include "desktop/Desktop.h"
#include "desktop/Guard.h"
#include "desktop/Icons.h"
#include "desktop/ScreenLook.h"
#include "ui_PictureForm.h"

#include <QCloseEvent>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** From that size on a screen has room for the larger of the two layouts. */
constexpr QSize LargeScreen(1280, 800);
constexpr QSize SmallBox(560, 420);
/** What the window has around its box, its frame included. */
constexpr QSize AroundBox(48, 140);

/** The error's text, and its number in brackets. */
QString withNumber(const dao::DaoError &error)
{
    return error.description + u" (Error "_s + QString::number(error.number) + u')';
}

} // namespace

PictureForm::PictureForm(Desktop &desktop, const Options &options, std::unique_ptr<PictureLink> link,
                         bool viewOnly, QWidget *parent)
    : QDialog(parent), handle(desktop, [] { return u"Error"_s; }, {.text = withNumber, .icon = Icon::Stop}),
      m_ui(std::make_unique<Ui::PictureForm>()), m_desktop(desktop), m_link(std::move(link)),
      m_viewOnly(viewOnly)
{
    m_ui->setupUi(this);
    Form_Load(options);
    wire();
}

PictureForm::~PictureForm() = default;

void PictureForm::showModally(const std::function<void()> &closed)
{
    setAttribute(Qt::WA_DeleteOnClose);
    connect(this, &QDialog::finished, this, closed);
    open();
}

void PictureForm::wire()
{
    connect(m_ui->cmdLoadFile, &QPushButton::clicked, this, &PictureForm::cmdLoadFile_Click);
    connect(m_ui->cmdClipboardPaste, &QPushButton::clicked, this, &PictureForm::cmdClipboardPaste_Click);
    connect(m_ui->cmdDelete, &QPushButton::clicked, this, &PictureForm::cmdDelete_Click);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &PictureForm::cmdCancel_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &PictureForm::cmdClose_Click);
    connect(m_ui->cmdPrev, &QPushButton::clicked, this, &PictureForm::cmdPrev_Click);
    connect(m_ui->cmdNext, &QPushButton::clicked, this, &PictureForm::cmdNext_Click);
}

void PictureForm::Form_Load(const Options &options)
{
    m_ui->cmdPrev->setIcon(icon(u"previous"_s));
    m_ui->cmdNext->setIcon(icon(u"next"_s));
    m_ui->picResized->setHint(u"No picture"_s);
    m_ui->picResized->setWantedSize(wantedBox());
    if (options.TabletActive)
        sizeForFingers(*this);
    for (QPushButton *button : {m_ui->cmdClose, m_ui->cmdDelete, m_ui->cmdLoadFile, m_ui->cmdClipboardPaste})
        button->setEnabled(!m_viewOnly);
    showOthers(m_link->hasOthers());
    showPasteButton();
    handle([this] { m_link->open(); });
    showLink();
    focusNext();
    // By itself a window takes no more than two thirds of the screen.
    resize(sizeHint());
}

void PictureForm::focusNext()
{
    // What the user takes next: a file for an empty box, else the way out.
    if (m_viewOnly)
        m_ui->cmdCancel->setFocus();
    else
        (m_link->box().isNull() ? m_ui->cmdLoadFile : m_ui->cmdClose)->setFocus();
}

QSize PictureForm::wantedBox() const
{
    if (screen()->size().width() < LargeScreen.width() || screen()->size().height() < LargeScreen.height())
        return SmallBox;
    const QSize room = screen()->availableSize() - AroundBox;
    return PictureBoxSize.scaled(room.boundedTo(PictureBoxSize), Qt::KeepAspectRatio);
}

void PictureForm::showPasteButton()
{
    m_ui->cmdClipboardPaste->setVisible(m_desktop.isPictureOnClipboard());
}

void PictureForm::showOthers(bool shown)
{
    m_ui->cmdPrev->setVisible(shown);
    m_ui->cmdNext->setVisible(shown);
}

void PictureForm::showLink()
{
    m_ui->picResized->setPicture(m_link->box());
    const QString name = m_link->name();
    setWindowTitle(name.isEmpty() ? u"Picture %1"_s.arg(m_link->PictureIndex()) : name);
    m_ui->picResized->setAccessibleDescription(windowTitle());
}

void PictureForm::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        showPasteButton();
    QDialog::changeEvent(event);
}

void PictureForm::cmdLoadFile_Click()
{
    handle([this] {
        if (m_link->loadFile())
            showOthers(false);
    });
    showLink();
    focusNext();
}

void PictureForm::cmdClipboardPaste_Click()
{
    handle([this] { m_link->paste(); });
    showLink();
    focusNext();
}

void PictureForm::cmdPrev_Click()
{
    handle([this] { m_link->previous(); });
    showLink();
}

void PictureForm::cmdNext_Click()
{
    handle([this] { m_link->next(); });
    showLink();
}

void PictureForm::cmdDelete_Click()
{
    bool closes = false;
    handle([&] { closes = m_link->remove(); });
    if (closes)
        done(Rejected);
}

void PictureForm::cmdCancel_Click()
{
    done(Rejected);
}

void PictureForm::reject()
{
    cmdCancel_Click();
}

void PictureForm::cmdClose_Click()
{
    if (Form_Unload())
        done(Accepted);
}

bool PictureForm::Form_Unload()
{
    return m_viewOnly || handle([this] { m_link->save(); });
}

void PictureForm::closeEvent(QCloseEvent *event)
{
    const QWidget *active = focusWidget();
    if (active == m_ui->cmdCancel || active == m_ui->cmdDelete || Form_Unload())
        QDialog::closeEvent(event);
    else
        event->ignore();
}

} // namespace quaverly
