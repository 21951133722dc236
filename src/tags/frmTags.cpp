// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/frmTags.h"

#include "desktop/Desktop.h"
#include "desktop/FileHelpers.h"
#include "desktop/ScreenLook.h"
#include "platform/options/OptionsStore.h"
#include "tags/TagPictures.h"
#include "ui_frmTags.h"

#include <QHeaderView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

enum FieldColumn { NameColumn, RecordColumn, MarkColumn, FileColumn };

const auto Different = u"<different>"_s;
const auto KeepTimeKey = u"KeepModificationTime"_s;

QString options()
{
    return QString::fromUtf16(OptionsSection);
}

QString oneLine(const QString &text)
{
    constexpr qsizetype longest = 300;
    return text.first(std::min(text.size(), longest)).replace(u'\n', u'\u21b5').remove(u'\r');
}

QString lengthText(qint64 milliseconds)
{
    const qint64 seconds = (milliseconds + 500) / 1000;
    return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

QTableWidgetItem &cell(QTableWidget &table, int row, int column)
{
    if (!table.item(row, column))
        table.setItem(row, column, new QTableWidgetItem);
    return *table.item(row, column);
}

} // namespace

frmTags::frmTags(Parts parts, TagPage page, QWidget *parent)
    : ModalScreen(parent), m_ui(std::make_unique<Ui::frmTags>()), m_parts(std::move(parts)),
      m_page(std::move(page))
{
    m_ui->setupUi(this);
    m_pictures =
        std::make_unique<TagPictures>(*m_ui, m_parts.services.desktop, m_page,
                                      TagPictures::Hooks{[this] { return chosenSongs(); },
                                                         [this](const std::function<void()> &command) {
                                                             work(m_parts.services.desktop, [&] {
                                                                 command();
                                                                 return false;
                                                             });
                                                         }});
    m_ui->chkKeepTime->setChecked(m_parts.services.optionsStore.GetSetting(options(), KeepTimeKey) == "1"_L1);
    layOut();
    wire();
    showFiles();
    m_ui->listFiles->selectRow(0);
    m_ui->listFields->selectRow(0);
    m_ui->listFields->setFocus();
}

frmTags::~frmTags() = default;

void frmTags::wire()
{
    connect(m_ui->listFiles, &QTableWidget::itemSelectionChanged, this, &frmTags::listFiles_Change);
    connect(m_ui->listFields, &QTableWidget::itemSelectionChanged, this, &frmTags::listFields_Change);
    connect(m_ui->listFields, &QTableWidget::itemActivated, m_ui->txtValue, qOverload<>(&QWidget::setFocus));
    connect(m_ui->txtValue, &QPlainTextEdit::textChanged, this, &frmTags::txtValue_Change);
    connect(m_ui->cmdToFile, &QPushButton::clicked, this, &frmTags::cmdToFile_Click);
    connect(m_ui->cmdToRecord, &QPushButton::clicked, this, &frmTags::cmdToRecord_Click);
    connect(m_ui->cmdAllToFile, &QPushButton::clicked, this, &frmTags::cmdAllToFile_Click);
    connect(m_ui->cmdAllToRecord, &QPushButton::clicked, this, &frmTags::cmdAllToRecord_Click);
    connect(m_ui->cmdAddField, &QPushButton::clicked, this, &frmTags::cmdAddField_Click);
    connect(m_ui->cmdWrite, &QPushButton::clicked, this, &frmTags::cmdWrite_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmTags::layOut()
{
    const int character = fontMetrics().averageCharWidth();
    const int line = fontMetrics().lineSpacing();
    for (QTableWidget *table : {m_ui->listFiles, m_ui->listFields}) {
        table->verticalHeader()->hide();
        table->verticalHeader()->setDefaultSectionSize(line + line / 2);
        table->horizontalHeader()->setHighlightSections(false);
    }
    m_ui->listFiles->setHorizontalHeaderLabels({u"File"_s, u"Title"_s, u"Artist"_s, u"Album"_s});
    m_ui->listFields->setHorizontalHeaderLabels({u"Field"_s, u"Record"_s, {}, u"File"_s});
    QHeaderView &fields = *m_ui->listFields->horizontalHeader();
    fields.setSectionResizeMode(RecordColumn, QHeaderView::Stretch);
    fields.setSectionResizeMode(FileColumn, QHeaderView::Stretch);
    fields.resizeSection(NameColumn, 16 * character);
    fields.resizeSection(MarkColumn, 4 * character);
    fields.setMinimumSectionSize(3 * character);
    m_ui->listFiles->horizontalHeader()->resizeSection(0, 24 * character);
    m_ui->txtValue->setFixedHeight(4 * line);
    m_ui->listFiles->setVisible(m_page.count() > 1);
    m_ui->splitter->setStretchFactor(1, 1);
    const int width = (m_page.count() > 1 ? 160 : 110) * character;
    resize(QSize(width, 42 * line).boundedTo(roomFor(*this)));
}

QList<int> frmTags::chosenSongs() const
{
    QList<int> songs;
    for (const QModelIndex &row : m_ui->listFiles->selectionModel()->selectedRows())
        songs += row.row();
    if (songs.isEmpty())
        songs += 0;
    std::ranges::sort(songs);
    return songs;
}

QStringList frmTags::chosenFields() const
{
    QStringList fields;
    for (const QModelIndex &row : m_ui->listFields->selectionModel()->selectedRows())
        fields += m_page.fields()[row.row()];
    return fields;
}

void frmTags::showFiles()
{
    const bool wasShowing = std::exchange(m_showing, true);
    m_ui->listFiles->setRowCount(m_page.count());
    for (int row = 0; row < m_page.count(); ++row) {
        const QString path = m_page.song(row).path;
        const QStringList texts{fileNameOf(path), m_page.fileText(u"TITLE"_s, {row}).value_or(QString()),
                                m_page.fileText(u"ARTIST"_s, {row}).value_or(QString()),
                                m_page.fileText(u"ALBUM"_s, {row}).value_or(QString())};
        for (int column = 0; column < texts.size(); ++column)
            cell(*m_ui->listFiles, row, column).setText(oneLine(texts[column]));
        cell(*m_ui->listFiles, row, 0).setToolTip(path);
    }
    m_showing = wasShowing;
}

void frmTags::listFiles_Change()
{
    if (m_showing)
        return;
    showFields();
    showDetails();
    m_pictures->show();
}

void frmTags::showFields()
{
    const bool wasShowing = std::exchange(m_showing, true);
    m_ui->listFields->setRowCount(static_cast<int>(m_page.fields().size()));
    for (int row = 0; row < m_ui->listFields->rowCount(); ++row)
        showField(row);
    m_showing = wasShowing;
    showValue();
}

void frmTags::showField(int row)
{
    const QString &field = m_page.fields()[row];
    const QList<int> songs = chosenSongs();
    QTableWidget &table = *m_ui->listFields;
    const bool differs = m_page.differs(field, songs);
    const QBrush colour = differs ? QBrush(palette().color(QPalette::Link)) : QBrush();
    const auto show = [&](int column, const QString &text, bool changed) {
        QTableWidgetItem &item = cell(table, row, column);
        item.setText(text);
        item.setData(Qt::ForegroundRole, differs ? QVariant(colour) : QVariant());
        QFont font = table.font();
        font.setBold(changed);
        item.setFont(font);
    };
    show(NameColumn, TagPage::label(field), false);
    const bool hasRecord = !TagPage::recordField(field).isEmpty();
    show(RecordColumn, hasRecord ? oneLine(m_page.recordText(field, songs).value_or(Different)) : QString(),
         m_page.isChanged(field, false, songs));
    show(MarkColumn, differs ? u"\u2260"_s : QString(), false);
    cell(table, row, MarkColumn).setTextAlignment(Qt::AlignCenter);
    cell(table, row, MarkColumn).setToolTip(differs ? u"Record and file differ."_s : QString());
    show(FileColumn, oneLine(m_page.fileText(field, songs).value_or(Different)),
         m_page.isChanged(field, true, songs));
}

void frmTags::listFields_Change()
{
    if (!m_showing)
        showValue();
}

void frmTags::showValue()
{
    const bool wasShowing = std::exchange(m_showing, true);
    const QStringList fields = chosenFields();
    const auto text = fields.size() == 1 ? m_page.fileText(fields.front(), chosenSongs()) : std::nullopt;
    m_ui->txtValue->setEnabled(fields.size() == 1);
    m_ui->txtValue->setPlainText(text.value_or(QString()));
    m_ui->txtValue->setPlaceholderText(text || fields.size() != 1 ? QString() : Different);
    m_ui->lblValue->setText(fields.size() == 1 ? TagPage::label(fields.front()) + u" in the &file"_s
                                               : u"In the &file"_s);
    m_showing = wasShowing;
}

void frmTags::txtValue_Change()
{
    const QStringList fields = chosenFields();
    if (m_showing || fields.size() != 1)
        return;
    m_page.setFileText(fields.front(), chosenSongs(), m_ui->txtValue->toPlainText());
    showField(static_cast<int>(m_page.fields().indexOf(fields.front())));
    showFiles();
}

void frmTags::showDetails()
{
    const QList<int> songs = chosenSongs();
    if (songs.size() > 1) {
        m_ui->lblDetails->setText(
            u"%1 files are chosen.  What you change is changed in all of them."_s.arg(songs.size()));
        return;
    }
    const TaggedSong &song = m_page.song(songs.front());
    QStringList parts{song.file.format};
    if (song.file.milliseconds > 0)
        parts += lengthText(song.file.milliseconds);
    if (song.file.bitRate > 0)
        parts += u"%1 kbit/s"_s.arg(song.file.bitRate);
    if (song.file.sampleRate > 0)
        parts += u"%1 Hz"_s.arg(song.file.sampleRate);
    if (song.file.channels > 0)
        parts += song.file.channels == 1   ? u"mono"_s
                 : song.file.channels == 2 ? u"stereo"_s
                                           : u"%1 channels"_s.arg(song.file.channels);
    parts += song.file.kinds.isEmpty() ? u"no tags"_s : u"tags: "_s + song.file.kinds.join(u", "_s);
    m_ui->lblDetails->setText(song.path + u'\n' + parts.join(u", "_s));
}

void frmTags::take(const QStringList &fields, bool toFile)
{
    for (const QString &field : fields) {
        if (toFile)
            m_page.takeToFile(field, chosenSongs());
        else
            m_page.takeToRecord(field, chosenSongs());
    }
    showFields();
    showFiles();
}

void frmTags::cmdToFile_Click()
{
    take(chosenFields(), true);
}

void frmTags::cmdToRecord_Click()
{
    take(chosenFields(), false);
}

void frmTags::cmdAllToFile_Click()
{
    take(m_page.fields(), true);
}

void frmTags::cmdAllToRecord_Click()
{
    take(m_page.fields(), false);
}

void frmTags::cmdAddField_Click()
{
    work(m_parts.services.desktop, [this] {
        const QString name =
            m_parts.services.desktop
                .InputPrompt(u"Name of the field, such as PUBLISHER or MOOD:"_s, u"Add Field"_s)
                .trimmed()
                .toUpper();
        const bool isName =
            std::ranges::all_of(name, [](QChar c) { return c > u' ' && c < u'\x7f' && c != u'='; });
        if (!isName) {
            m_parts.services.desktop.MessageBox(
                u"The name of a field has letters, digits and signs, but no blanks and no \"=\"."_s,
                u"Add Field"_s, Icon::Exclamation);
            return false;
        }
        m_page.addField(name);
        showFields();
        if (!name.isEmpty()) {
            m_ui->listFields->selectRow(static_cast<int>(m_page.fields().indexOf(name)));
            m_ui->txtValue->setFocus();
        }
        return false;
    });
}

void frmTags::cmdWrite_Click()
{
    work(m_parts.services.desktop, [this] {
        const bool keepTimes = m_ui->chkKeepTime->isChecked();
        m_parts.services.optionsStore.SaveSetting(options(), KeepTimeKey, keepTimes ? u"1"_s : u"0"_s);
        if (TagJob(m_parts.services, m_page, m_parts.sink).run({.keepTimes = keepTimes}))
            m_parts.written();
        showFiles();
        listFiles_Change();
        return false;
    });
}

void frmTags::reject()
{
    if (m_page.plans().empty() ||
        m_parts.services.desktop.MessageBox(
            u"What you changed here has not been written.\n\nClose all the same?"_s, windowTitle(),
            Icon::Question, Buttons::YesNo, Answer::No) == Answer::Yes)
        ModalScreen::reject();
}

} // namespace quaverly
