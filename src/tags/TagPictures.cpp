// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagPictures.h"

#include "desktop/Desktop.h"
#include "ui_frmTags.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** A larger picture is not looked at: it would take longer than anybody waits. */
constexpr qint64 MostPixels = 50'000'000;
constexpr qint64 MostBytes = 16LL * 1024 * 1024;

const auto Title = u"Pictures in Tags"_s;

QString nameOfRole(int role)
{
    switch (role) {
    case shell::TagPicture::FrontCover:
        return u"Front cover"_s;
    case 4:
        return u"Back cover"_s;
    default:
        return u"Picture"_s;
    }
}

/** Null for what is damaged, or too large. */
QImage imageOf(const QByteArray &bytes, QSize within)
{
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!size.isValid() || qint64(size.width()) * size.height() > MostPixels)
        return {};
    reader.setScaledSize(size.scaled(within, Qt::KeepAspectRatio));
    return reader.read();
}

QString formatOf(const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    return QString::fromLatin1(QImageReader(&buffer).format());
}

} // namespace

TagPictures::TagPictures(Ui::frmTags &ui, Desktop &desktop, TagPage &page, Hooks hooks)
    : m_ui(ui), m_desktop(desktop), m_page(page), m_hooks(std::move(hooks))
{
    const auto on = [this](const QPushButton *button, void (TagPictures::*handler)()) {
        connect(button, &QPushButton::clicked, this,
                [this, handler] { m_hooks.work([this, handler] { (this->*handler)(); }); });
    };
    on(ui.cmdAddPicture, &TagPictures::cmdAddPicture_Click);
    on(ui.cmdReplacePicture, &TagPictures::cmdReplacePicture_Click);
    on(ui.cmdExportPicture, &TagPictures::cmdExportPicture_Click);
    on(ui.cmdRemovePicture, &TagPictures::cmdRemovePicture_Click);
    connect(ui.cmbPictures, &QComboBox::currentIndexChanged, this, &TagPictures::cmbPictures_Change);
}

const QList<shell::TagPicture> &TagPictures::pictures() const
{
    return m_page.pictures(m_hooks.songs().front());
}

const shell::TagPicture *TagPictures::chosen() const
{
    const int place = m_ui.cmbPictures->currentIndex();
    return place >= 0 && place < pictures().size() ? &pictures()[place] : nullptr;
}

void TagPictures::show()
{
    const QSignalBlocker quiet(m_ui.cmbPictures);
    m_ui.cmbPictures->clear();
    for (const shell::TagPicture &picture : pictures())
        m_ui.cmbPictures->addItem(
            u"%1, %2 KB"_s.arg(nameOfRole(picture.role)).arg(picture.bytes.size() / 1024));
    cmbPictures_Change();
}

void TagPictures::cmbPictures_Change()
{
    const shell::TagPicture *picture = chosen();
    const QSize room = m_ui.lblPicture->minimumSize();
    const QImage image = picture ? imageOf(picture->bytes, room) : QImage();
    m_ui.lblPicture->setPixmap(QPixmap::fromImage(image));
    if (image.isNull())
        m_ui.lblPicture->setText(picture ? u"No preview"_s : u"No picture"_s);
    m_ui.cmbPictures->setEnabled(picture);
    m_ui.cmdReplacePicture->setEnabled(picture);
    m_ui.cmdExportPicture->setEnabled(picture);
    m_ui.cmdRemovePicture->setEnabled(picture);
}

std::optional<shell::TagPicture> TagPictures::choose()
{
    const auto path =
        m_desktop.ShowOpenDialog({u"Select a picture"_s,
                                  u"Pictures (*.jpg;*.jpeg;*.png)|*.jpg;*.jpeg;*.png|All Files (*.*)|*.*"_s,
                                  {},
                                  {}});
    if (!path)
        return {};
    QFile file(*path);
    const bool isRead = file.open(QIODevice::ReadOnly) && file.size() <= MostBytes;
    const QByteArray bytes = isRead ? file.readAll() : QByteArray();
    const QString format = formatOf(bytes);
    if ((format == "jpeg"_L1 || format == "png"_L1) && !imageOf(bytes, QSize(16, 16)).isNull())
        return shell::TagPicture{bytes, u"image/"_s + format};
    m_desktop.MessageBox(u"This is no JPEG or PNG picture of at most 16 MB:\n"_s + *path, Title,
                         Icon::Exclamation);
    return {};
}

void TagPictures::change(const std::function<void(QList<shell::TagPicture> &)> &change)
{
    QList<shell::TagPicture> all = pictures();
    change(all);
    m_page.setPictures(m_hooks.songs(), all);
    show();
}

void TagPictures::cmdAddPicture_Click()
{
    if (const auto picture = choose())
        change([&](QList<shell::TagPicture> &all) { all += *picture; });
}

void TagPictures::cmdReplacePicture_Click()
{
    const int place = m_ui.cmbPictures->currentIndex();
    const shell::TagPicture before = *chosen();
    if (auto picture = choose()) {
        picture->role = before.role;
        picture->description = before.description;
        change([&](QList<shell::TagPicture> &all) { all[place] = *picture; });
    }
}

void TagPictures::cmdRemovePicture_Click()
{
    const int place = m_ui.cmbPictures->currentIndex();
    change([&](QList<shell::TagPicture> &all) { all.removeAt(place); });
}

void TagPictures::cmdExportPicture_Click()
{
    const shell::TagPicture picture = *chosen();
    const bool isPng = picture.mimeType == "image/png"_L1;
    const auto path = m_desktop.ShowSaveDialog(
        {u"Export the picture"_s, u"All Files (*.*)|*.*"_s, {}, isPng ? u"cover.png"_s : u"cover.jpg"_s});
    if (!path)
        return;
    QSaveFile file(*path);
    if (!file.open(QIODevice::WriteOnly) || file.write(picture.bytes) != picture.bytes.size() ||
        !file.commit())
        m_desktop.MessageBox(u"The picture could not be written to\n%1\n%2"_s.arg(*path, file.errorString()),
                             Title, Icon::Exclamation);
}

} // namespace quaverly
