// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pictures/PictureFiles.h"
#include "songlist/DataControl.h"

#include <QDialog>

#include <array>
#include <memory>
#include <optional>

namespace Ui {
class Pics3;
}

namespace quaverly {

class PictureBox;
class PictureLoader;

/**
 * The first three pictures of the current song, beside the list. It follows the current row by itself; the
 * row never waits for a picture. A double click enlarges one.
 */
class Pics3 final : public QDialog, private DataListener
{
    Q_OBJECT

public:
    /** Both outlive the screen. */
    Pics3(Catalogue &catalogue, DataControl &displayed, QWidget *parent = nullptr);
    ~Pics3() override;

    /** Does nothing while the screen is hidden. */
    void ShowSongPictures();
    /** True while one picture fills the screen. */
    [[nodiscard]] bool isEnlarged() const { return m_enlarged >= 0; }
    /** Back to three pictures. */
    void showThree();
    /**
     * Beside the main screen where its monitor has room, else into that monitor's lower right corner. A place
     * that the user chose stays, unless it is over the main screen's menu.
     */
    void place();

    /** Escape: as the close box. */
    void reject() override;

protected:
    /** Closing an enlarged picture leads back to the three. */
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    static constexpr int Images = 3;

    void setRebuilt() override { ShowSongPictures(); }
    void rowChanged() override { ShowSongPictures(); }

    void wire();
    void Form_Load();
    void Image_DblClick(int image);
    void loader_Loaded();
    /** What the window takes around itself. */
    [[nodiscard]] QSize frameSizes() const;
    /** On the monitor; empty without a main screen. */
    [[nodiscard]] QRect menuPlace() const;
    [[nodiscard]] bool wasMovedByUser() const;
    void resizeOnScreen(QSize wanted);
    void moveOntoScreen();
    /** Paths by image; empty where the song has no picture. */
    [[nodiscard]] QStringList paths(qint64 position) const;
    /** Those of the rows before and behind, which are likely to be wanted next. */
    [[nodiscard]] QStringList neighbours() const;
    [[nodiscard]] QSize boxOf(int image) const;

    std::unique_ptr<Ui::Pics3> m_ui;
    DataControl &m_displayed;
    PictureFiles m_files;
    PictureLoader *m_loader;
    std::array<PictureBox *, Images> m_images = {};
    QStringList m_paths;
    int m_enlarged = -1;
    /** Where this program put it last. */
    std::optional<QPoint> m_placed;
    /** Where the three were when one was enlarged. */
    QPoint m_placeOfThree;
};

} // namespace quaverly
