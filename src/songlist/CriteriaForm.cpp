// SPDX-License-Identifier: GPL-3.0-or-later
#include "songlist/CriteriaForm.h"

#include "catalogue/Options.h"
#include "desktop/Guard.h"
#include "desktop/ScreenLook.h"
#include "platform/text/Text.h"
#include "songlist/CriteriaEdit.h"
#include "songlist/CriteriaProbe.h"
#include "songlist/CriteriaText.h"
#include "songlist/DisplayedSet.h"
#include "songlist/DropDownOnFocus.h"
#include "songlist/MainScreen.h"
#include "ui_CriteriaForm.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QListView>
#include <QLocale>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTextDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr QSize FirstSize(820, 640);
constexpr int MostStars = 5;
/** A filter that takes longer gets a wait window. */
constexpr qint64 QuietMs = 400;

/** Errors of the file or the machine, which no other text would mend. */
bool isOfTheFile(const dao::DaoError &error)
{
    static constexpr int numbers[] = {dao::CannotOpenFile, dao::Locked, dao::CatalogueNotFound,
                                      dao::UnrecognisedFormat, dao::ObjectInvalid};
    return error.number <= dao::PathNotFound || std::ranges::find(numbers, error.number) != std::end(numbers);
}

/** A tool tip that shows a text as it is, and folds a long one. */
QString plainToolTip(const QString &text)
{
    constexpr qsizetype LongestUnfolded = 72;
    constexpr qsizetype Longest = 1000;
    if (text.size() <= LongestUnfolded && !Qt::mightBeRichText(text))
        return text;
    const QString shown = text.size() > Longest ? text.left(Longest) + u"..."_s : text;
    return u"<p>"_s + shown.toHtmlEscaped() + u"</p>"_s;
}

QString tooLongText(const QString &what)
{
    return what + u" is too long.  Criteria can be up to %1 characters long."_s.arg(
                      QLocale(QLocale::English).toString(LongestCriteria));
}

} // namespace

CriteriaForm::CriteriaForm(DisplayedSet &set, MainScreen &mainScreen, SettingsRows &settings,
                           Catalogue &catalogue, Desktop &desktop, const Options &options, QWidget *parent)
    : QDialog(parent), handle(desktop, [this] { return windowTitle(); }),
      m_ui(std::make_unique<Ui::CriteriaForm>()), m_set(set), m_mainScreen(mainScreen),
      m_catalogue(catalogue), m_desktop(desktop), m_filters(settings, desktop),
      m_probe(new CriteriaProbe(catalogue, set.texts(), this)), m_tabletActive(options.TabletActive)
{
    m_ui->setupUi(this);
    Form_Load();
    wire();
}

CriteriaForm::~CriteriaForm() = default;

void CriteriaForm::wire()
{
    const auto on = [this](auto *control, auto signal, auto handler) {
        connect(control, signal, this, handler);
    };
    on(m_ui->listFieldNames, &QListWidget::itemDoubleClicked, &CriteriaForm::listFieldNames_DblClick);
    on(m_ui->listFilters, &QListWidget::itemClicked, &CriteriaForm::listFilters_Click);
    on(m_ui->listFilters, &QListWidget::itemSelectionChanged, &CriteriaForm::listFilters_Click);
    on(m_ui->cmbGenre, &QComboBox::currentTextChanged, &CriteriaForm::cmbGenre_Change);
    on(m_ui->cmbRating, &QComboBox::currentTextChanged, &CriteriaForm::cmbRating_Change);
    on(m_ui->txtCriteria, &QPlainTextEdit::textChanged, &CriteriaForm::txtCriteria_Change);
    on(m_ui->txtCriteria, &CriteriaEdit::entered, &CriteriaForm::cmdApplyCriteria_Click);
    on(m_ui->txtCriteria, &CriteriaEdit::refusedPaste, &CriteriaForm::txtCriteria_RefusedPaste);
    on(m_ui->cmdAddCriteria, &QPushButton::clicked, &CriteriaForm::cmdAddCriteria_Click);
    on(m_ui->cmdCurrentAlbum, &QPushButton::clicked, &CriteriaForm::cmdCurrentAlbum_Click);
    on(m_ui->cmdRestore, &QPushButton::clicked, &CriteriaForm::cmdRestore_Click);
    on(m_ui->cmdClear, &QPushButton::clicked, &CriteriaForm::cmdClear_Click);
    on(m_ui->cmdSaveFilter, &QPushButton::clicked, &CriteriaForm::cmdSaveFilter_Click);
    on(m_ui->cmdRenameFilter, &QPushButton::clicked, &CriteriaForm::cmdRenameFilter_Click);
    on(m_ui->cmdDeleteFilter, &QPushButton::clicked, &CriteriaForm::cmdDeleteFilter_Click);
    on(m_ui->cmdShowAll, &QPushButton::clicked, &CriteriaForm::cmdShowAll_Click);
    on(m_ui->cmdExit, &QPushButton::clicked, &CriteriaForm::cmdExit_Click);
    on(m_ui->cmdApplyCriteria, &QPushButton::clicked, &CriteriaForm::cmdApplyCriteria_Click);
    on(m_probe, &CriteriaProbe::counted, &CriteriaForm::probe_Counted);
    on(m_probe, &CriteriaProbe::refused, &CriteriaForm::probe_Refused);
    m_ui->listFieldNames->installEventFilter(this);
    new DropDownOnFocus(*m_ui->cmbRating);
}

void CriteriaForm::Form_Load()
{
    fillGenres();
    for (int stars = 1; stars <= MostStars; ++stars)
        m_ui->cmbRating->addItem(QString(stars, u'*'));
    m_ui->cmbRating->setCurrentIndex(-1);
    if (m_set.Data1().hasRows())
        m_ui->cmdCurrentAlbum->setToolTip(plainToolTip(m_set.Data1().currentText(u"AlbumName"_s)));
    m_ui->cmdRestore->setVisible(hasCriteria(m_set.LastFilterCriteria()));
    m_ui->cmdRestore->setToolTip(plainToolTip(m_set.LastFilterCriteria()));
    m_set.rememberSourceForFilter();
    if (m_tabletActive)
        sizeForFingers(*this);
    resize(FirstSize.boundedTo(roomFor(*this)));
    m_ui->txtCriteria->setFocus();
}

void CriteriaForm::fillGenres()
{
    const auto rows =
        m_catalogue.CatalogueDb->OpenRecordset(u"SELECT Genre FROM tblContacts GROUP BY Genre"_s);
    QStringList genres;
    for (qint64 row = 0; row < rows->RecordCount(); ++row) {
        if (const QString genre = NullToEmpty(rows->valueAt(row, 0)); isGreaterThanBlank(genre))
            genres.append(genre);
    }
    m_ui->cmbGenre->addItems(genres);
    m_ui->cmbGenre->setCurrentIndex(-1);
    if (auto *list = qobject_cast<QListView *>(m_ui->cmbGenre->view()))
        list->setUniformItemSizes(true);
}

void CriteriaForm::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!std::exchange(m_firstActivation, false))
        return;
    handle([this] { Form_Activate(); });
}

void CriteriaForm::Form_Activate()
{
    QStringList displayed;
    for (const dao::Field &field : m_set.Data1().Recordset().Fields())
        displayed.append(field.name);
    m_ui->listFieldNames->addItems(criteriaFields(displayed));
    showFilters({});
    if (!m_tabletActive)
        return;
    for (int row = 0; row < m_ui->listFieldNames->count(); ++row)
        m_ui->listFieldNames->item(row)->setSizeHint({0, FingerHeight});
}

void CriteriaForm::showFilters(const QString &selected)
{
    const QSignalBlocker quiet(m_ui->listFilters);
    m_ui->listFilters->clear();
    for (const QString &name : m_filters.names()) {
        auto *item = new QListWidgetItem(name, m_ui->listFilters);
        item->setToolTip(plainToolTip(name));
        if (m_tabletActive)
            item->setSizeHint({0, FingerHeight});
        if (name == selected)
            m_ui->listFilters->setCurrentItem(item);
    }
}

bool CriteriaForm::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !isPlainEnter(*static_cast<QKeyEvent *>(event)))
        return QDialog::eventFilter(watched, event);
    // Passed on, it would press the default button as well.
    listFieldNames_Enter();
    return true;
}

void CriteriaForm::listFieldNames_DblClick(QListWidgetItem *item)
{
    m_ui->txtCriteria->setCriteria(withField(criteria(), item->text()));
    m_ui->cmdSaveFilter->setEnabled(true);
}

void CriteriaForm::listFieldNames_Enter()
{
    if (const auto *item = m_ui->listFieldNames->currentItem())
        m_ui->txtCriteria->setCriteria(withField(criteria(), item->text()));
}

void CriteriaForm::listFilters_Click()
{
    handle([this] {
        const QString name = selectedFilter();
        if (name.isEmpty())
            return;
        m_ui->cmdDeleteFilter->setEnabled(true);
        m_ui->cmdRenameFilter->setEnabled(true);
        const auto kept = m_filters.criteria(name);
        if (kept && kept->size() > LongestCriteria) {
            m_ui->txtCriteria->clear();
            showState(tooLongText(u"The filter \""_s + name + u'"'));
        } else if (kept) {
            m_ui->txtCriteria->setPlainText(*kept);
            m_ui->cmdClear->setEnabled(true);
        }
    });
}

void CriteriaForm::cmbGenre_Change(const QString &text)
{
    enableChoice(text);
}

void CriteriaForm::cmbRating_Change(const QString &text)
{
    enableChoice(text);
}

void CriteriaForm::enableChoice(const QString &text)
{
    if (!isGreaterThanBlank(text))
        return;
    m_ui->cmdAddCriteria->setEnabled(true);
    m_ui->cmdClear->setEnabled(true);
}

void CriteriaForm::txtCriteria_Change()
{
    const QString text = criteria();
    m_ui->cmdApplyCriteria->setEnabled(!text.isEmpty());
    if (!text.isEmpty()) {
        // What was typed by hand may be cleared and saved like the rest.
        m_ui->cmdClear->setEnabled(true);
        m_ui->cmdSaveFilter->setEnabled(true);
    }
    showState({});
    m_probe->setCriteria(text);
}

void CriteriaForm::cmdAddCriteria_Click()
{
    m_ui->txtCriteria->setCriteria(
        withGenreAndRating(criteria(), m_ui->cmbGenre->currentText(), m_ui->cmbRating->currentText()));
    clearChoices();
}

void CriteriaForm::clearChoices()
{
    m_ui->cmbGenre->setCurrentIndex(-1);
    m_ui->cmbRating->setCurrentIndex(-1);
    m_ui->cmdAddCriteria->setEnabled(false);
}

void CriteriaForm::cmdCurrentAlbum_Click()
{
    handle([this] {
        if (!m_set.Data1().hasRows())
            return;
        const QString album = m_set.Data1().currentText(u"AlbumName"_s);
        if (isGreaterThanBlank(album))
            m_ui->txtCriteria->setCriteria(
                withAlbum(criteria(), album, m_set.Data1().currentText(u"Artist"_s)));
    });
}

void CriteriaForm::cmdRestore_Click()
{
    m_ui->txtCriteria->setCriteria(m_set.LastFilterCriteria());
}

void CriteriaForm::cmdClear_Click()
{
    m_ui->txtCriteria->setCriteria({});
    clearChoices();
    m_ui->cmdClear->setEnabled(false);
}

void CriteriaForm::cmdSaveFilter_Click()
{
    handle([this] {
        if (!hasCriteria(criteria())) {
            m_desktop.MessageBox(u"You must supply Criteria in order to save a Filter."_s,
                                 u"Criteria Required"_s);
            m_ui->txtCriteria->setFocus();
            m_ui->cmdSaveFilter->setEnabled(false);
            return;
        }
        if (const auto name = m_filters.save(criteria(), selectedFilter())) {
            showFilters(*name);
            m_ui->cmdRenameFilter->setEnabled(true);
            m_ui->cmdDeleteFilter->setEnabled(true);
        }
    });
}

void CriteriaForm::cmdRenameFilter_Click()
{
    handle([this] {
        const QString name = selectedFilter();
        if (const auto newName = m_filters.rename(name))
            showFilters(*newName);
        if (name.isEmpty())
            m_ui->listFilters->setFocus();
    });
}

void CriteriaForm::cmdDeleteFilter_Click()
{
    handle([this] {
        if (m_filters.remove(selectedFilter()))
            showFilters({});
    });
}

void CriteriaForm::cmdShowAll_Click()
{
    handle([this] {
        accept();
        m_mainScreen.ShowAllMenu_Click();
        m_mainScreen.focusGrid();
    });
}

void CriteriaForm::cmdExit_Click()
{
    reject();
}

void CriteriaForm::reject()
{
    if (m_applying)
        return;
    m_set.setLastFilterCriteria(criteria());
    QDialog::reject();
}

void CriteriaForm::cmdApplyCriteria_Click()
{
    if (m_applying)
        return;
    const QScopedValueRollback applying(m_applying, true);
    handle([this] {
        try {
            apply();
        } catch (const dao::DaoError &error) {
            if (isOfTheFile(error))
                throw;
            tellInvalid();
        }
    });
}

void CriteriaForm::apply()
{
    std::optional<dao::ReadRows> songs;
    if (!criteria().isEmpty()) {
        songs = readSongs();
        if (!songs) {
            m_ui->txtCriteria->setFocus();
            return;
        }
    }
    if (m_set.filterApplied(criteria(), songs ? &*songs : nullptr))
        accept();
    else
        m_ui->txtCriteria->setFocus();
}

std::optional<dao::ReadRows> CriteriaForm::readSongs()
{
    const Hourglass hourglass(m_desktop);
    std::unique_ptr<WorkingWindow> wait;
    QElapsedTimer since;
    since.start();
    return m_probe->read(criteria(), [&] {
        if (!wait && since.elapsed() > QuietMs) {
            wait = m_desktop.ShowWorkingForm(u"Looking for the Songs"_s, u"Please wait..."_s, false);
            wait->offerCancel();
        }
        if (wait)
            m_desktop.letEventsRun();
        return !wait || !wait->isClosed();
    });
}

void CriteriaForm::txtCriteria_RefusedPaste()
{
    m_desktop.MessageBox(tooLongText(u"The text that would be put in"_s), u"Criteria too long"_s,
                         Icon::Exclamation);
}

void CriteriaForm::tellInvalid()
{
    m_desktop.resetPointer();
    m_desktop.MessageBox(u"The criteria you specified are invalid.  Try again."_s, u"Invalid syntax"_s,
                         Icon::Exclamation);
    m_ui->txtCriteria->setFocus();
}

void CriteriaForm::probe_Counted(qint64 songs)
{
    showState(songsText(songs));
}

void CriteriaForm::probe_Refused(const QString &text)
{
    showState(text);
}

void CriteriaForm::showState(const QString &text)
{
    m_ui->lblCriteriaState->setText(text);
    m_ui->lblCriteriaState->setAccessibleDescription(text);
}

QString CriteriaForm::criteria() const
{
    return m_ui->txtCriteria->criteria();
}

QString CriteriaForm::selectedFilter() const
{
    const auto selected = m_ui->listFilters->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

} // namespace quaverly
