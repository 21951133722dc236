// SPDX-License-Identifier: GPL-3.0-or-later
#include "pictures/Pics3.h"

#include "pictures/PictureLoader.h"
#include "platform/options/OptionsStore.h"
#include "platform/text/Twips.h"
#include "ui_Pics3.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FormSize(4008 / TwipsPerPixel, 9360 / TwipsPerPixel);
constexpr QSize EnlargedSize(1024, 768);

} // namespace

Pics3::Pics3(Catalogue &catalogue, DataControl &displayed, QWidget *parent)
    : QDialog(parent, Qt::Tool), m_ui(std::make_unique<Ui::Pics3>()), m_displayed(displayed),
      m_files(catalogue), m_loader(new PictureLoader(this))
{
    m_ui->setupUi(this);
    m_images = {m_ui->Image1, m_ui->Image2, m_ui->Image3};
    Form_Load();
    wire();
    m_displayed.addListener(*this);
}

Pics3::~Pics3()
{
    m_displayed.removeListener(*this);
}

void Pics3::wire()
{
    for (int image = 0; image < Images; ++image)
        connect(m_images[std::size_t(image)], &PictureBox::doubleClicked, this,
                [this, image] { Image_DblClick(image); });
    connect(m_loader, &PictureLoader::loaded, this, &Pics3::loader_Loaded);
}

void Pics3::Form_Load()
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    resizeOnScreen(FormSize);
}

QSize Pics3::frameSizes() const
{
    // A window that was never shown has no frame yet; the main screen's is alike.
    const QWidget *framed = this;
    if (!isVisible() && parentWidget())
        framed = parentWidget();
    return framed->frameGeometry().size() - framed->size();
}

void Pics3::resizeOnScreen(QSize wanted)
{
    resize(wanted.boundedTo(screen()->availableSize() - frameSizes()));
}

QRect Pics3::menuPlace() const
{
    const auto *menu = parentWidget() ? parentWidget()->findChild<QMenuBar *>() : nullptr;
    return menu ? QRect(menu->mapToGlobal(QPoint()), menu->size()) : QRect();
}

bool Pics3::wasMovedByUser() const
{
    // A window manager may put a window a little off.
    constexpr int Nearby = 40;
    return m_placed && (pos() - *m_placed).manhattanLength() > Nearby;
}

void Pics3::place()
{
    const QWidget &beside = parentWidget() ? *parentWidget() : *this;
    const QSize around = frameSizes();
    const QRect menu = menuPlace();
    if (wasMovedByUser() && !beside.isMaximized() && !QRect(pos(), size() + around).intersects(menu))
        return;
    resizeOnScreen(FormSize);
    const QRect room = beside.screen()->availableGeometry();
    const QRect taken = beside.frameGeometry();
    const QSize frame = size() + around;
    const int lowest = room.bottom() + 1 - frame.height();
    const int besideTop = std::clamp(taken.top(), room.top(), std::max(room.top(), lowest));
    if (room.right() - taken.right() >= frame.width()) {
        move(taken.right() + 1, besideTop);
    } else if (taken.left() - room.left() >= frame.width()) {
        move(taken.left() - frame.width(), besideTop);
    } else {
        const int top = menu.isEmpty() ? lowest : std::max(lowest, menu.bottom() + 1);
        resize(width(), room.bottom() + 1 - top - around.height());
        move(room.right() + 1 - frame.width(), top);
    }
    m_placed = pos();
}

QStringList Pics3::paths(qint64 position) const
{
    QStringList found;
    const dao::Recordset &rows = m_displayed.Recordset();
    for (int slot = 1; slot <= Images; ++slot) {
        const QString name = rows.valueAt(position, rows.fieldIndex(pictureField(slot))).toString().trimmed();
        found += m_files.exists(name) ? m_files.pathOf(name) : QString();
    }
    return found;
}

QStringList Pics3::neighbours() const
{
    const dao::Recordset &rows = m_displayed.Recordset();
    const qint64 position = rows.AbsolutePosition();
    QStringList found;
    if (position + 1 < rows.RecordCount())
        found += paths(position + 1);
    if (position > 0)
        found += paths(position - 1);
    return found;
}

QSize Pics3::boxOf(int image) const
{
    return m_images[std::size_t(image)]->size() * devicePixelRatioF();
}

void Pics3::ShowSongPictures()
{
    if (!isVisible())
        return;
    m_paths = QStringList(Images);
    setWindowTitle(u"Pictures"_s);
    QStringList next;
    if (m_displayed.hasRows() && m_displayed.Recordset().AbsolutePosition() >= 0) {
        m_paths = paths(m_displayed.Recordset().AbsolutePosition());
        setWindowTitle(m_displayed.currentText(u"SongName"_s));
        next = neighbours();
    }
    loader_Loaded();
    const int measured = std::max(0, m_enlarged);
    m_loader->want((isEnlarged() ? QStringList{m_paths.at(measured)} : m_paths) + next, boxOf(measured));
}

void Pics3::loader_Loaded()
{
    for (int image = 0; image < Images; ++image) {
        PictureBox &box = *m_images[std::size_t(image)];
        const QString path = m_paths.value(image);
        box.setPicture(m_loader->picture(path, boxOf(std::max(0, m_enlarged))).value_or(QImage()));
    }
}

void Pics3::Image_DblClick(int image)
{
    if (m_paths.value(image).isEmpty() || isEnlarged())
        return;
    m_enlarged = image;
    m_placeOfThree = pos();
    for (PictureBox *box : m_images)
        box->setVisible(box == m_images[std::size_t(image)]);
    resizeOnScreen(EnlargedSize);
    moveOntoScreen();
    ShowSongPictures();
}

void Pics3::moveOntoScreen()
{
    const QRect room = screen()->availableGeometry();
    const QRect frame = frameGeometry();
    move(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
         std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
}

void Pics3::showThree()
{
    const bool wasEnlarged = isEnlarged();
    m_enlarged = -1;
    for (PictureBox *box : m_images)
        box->show();
    resizeOnScreen(FormSize);
    if (wasEnlarged)
        move(m_placeOfThree);
    ShowSongPictures();
}

void Pics3::reject()
{
    close();
}

void Pics3::closeEvent(QCloseEvent *event)
{
    if (isEnlarged()) {
        showThree();
        event->ignore();
        return;
    }
    event->accept();
}

void Pics3::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    ShowSongPictures();
}

void Pics3::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    ShowSongPictures();
}

} // namespace quaverly
