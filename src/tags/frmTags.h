// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/ModalScreen.h"
#include "tags/TagJob.h"

#include <memory>

namespace Ui {
class frmTags;
}

namespace quaverly {

class TagPictures;

/** Shows records and the tags of their files side by side, and writes what the user wants of them. */
class frmTags final : public ModalScreen
{
    Q_OBJECT

public:
    struct Parts
    {
        /** All of it outlives the screen. */
        const Services &services;
        RecordSink sink;
        /** After each writing. */
        std::function<void()> written;
    };
    frmTags(Parts parts, TagPage page, QWidget *parent = nullptr);
    ~frmTags() override;

    /** Asks first when something was changed and not written. */
    void reject() override;

private:
    void wire();
    void layOut();
    void listFiles_Change();
    void listFields_Change();
    void txtValue_Change();
    void cmdToFile_Click();
    void cmdToRecord_Click();
    void cmdAllToFile_Click();
    void cmdAllToRecord_Click();
    void cmdAddField_Click();
    void cmdWrite_Click();
    void showFiles();
    void showFields();
    void showField(int row);
    void showValue();
    void showDetails();
    void take(const QStringList &fields, bool toFile);
    [[nodiscard]] QList<int> chosenSongs() const;
    [[nodiscard]] QStringList chosenFields() const;

    std::unique_ptr<Ui::frmTags> m_ui;
    Parts m_parts;
    TagPage m_page;
    std::unique_ptr<TagPictures> m_pictures;
    /** While the program itself fills in the box. */
    bool m_showing = false;
};

} // namespace quaverly
