// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/QtDesktop.h"

#include "desktop/ColorNumber.h"
#include "desktop/FileDialogs.h"
#include "desktop/InputForm.h"
#include "desktop/ScreenLook.h"
#include "desktop/WorkingForm.h"
#include "desktop/frmHelp.h"
#include "desktop/frmMessage.h"
#include "desktop/frmPreview.h"
#include "platform/store/DaoError.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QFontDialog>
#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QInputDevice>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Events get through this often in a busy loop. */
constexpr qint64 EventPeriodMs = 50;
/** How long a new window may take until the display shows it. */
constexpr int FirstShowMs = 200;
constexpr QSize PreviewSize(900, 820);
constexpr char WaitedFor[] = "quaverly_waitedFor";

/** The window that a dialog belongs to; a window that may go away meanwhile passes it on to its owner. */
QWidget *ownerOfDialogs()
{
    QWidget *modal = QApplication::activeModalWidget();
    QWidget *window = modal ? modal : QApplication::activeWindow();
    while (window && window->testAttribute(Qt::WA_DeleteOnClose) && qobject_cast<WorkingForm *>(window))
        window = window->parentWidget();
    return window;
}

/** The plain pointer while a dialog waits for the user. */
class PlainPointer final
{
public:
    PlainPointer() : m_wasBusy(QGuiApplication::overrideCursor() != nullptr)
    {
        if (m_wasBusy)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer()
    {
        if (m_wasBusy)
            QGuiApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer &) = delete;
    PlainPointer &operator=(const PlainPointer &) = delete;

private:
    bool m_wasBusy;
};

QMessageBox::Icon iconOf(Icon icon)
{
    switch (icon) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Stop:
        return QMessageBox::Critical;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton buttonOf(Answer answer)
{
    switch (answer) {
    case Answer::Cancel:
        return QMessageBox::Cancel;
    case Answer::Yes:
        return QMessageBox::Yes;
    case Answer::No:
        return QMessageBox::No;
    case Answer::Ok:
    case Answer::More:
        break;
    }
    return QMessageBox::Ok;
}

QList<Answer> answersOf(Buttons buttons)
{
    switch (buttons) {
    case Buttons::OkCancel:
        return {Answer::Ok, Answer::Cancel};
    case Buttons::YesNo:
        return {Answer::Yes, Answer::No};
    case Buttons::Ok:
        break;
    }
    return {Answer::Ok};
}

/** What the box says, once its buttons are on it. */
void fill(QMessageBox &box, const QString &text, const QString &title, Icon icon)
{
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(iconOf(icon));
    arrangeButtons(box);
    if (auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s))
        showFolded(*label, text);
}

/** A handle on the please-wait window, which the user may close first. */
class WorkingFormHandle final : public WorkingWindow
{
public:
    explicit WorkingFormHandle(WorkingForm *form) : m_form(form) {}
    ~WorkingFormHandle() override
    {
        if (m_form)
            m_form->close();
    }
    void setMsg(const QString &text) override
    {
        if (m_form)
            m_form->setMsg(text);
    }
    void setBar(int twips) override
    {
        WorkingWindow::setBar(twips);
        if (m_form)
            m_form->setBar(twips);
    }
    void offerCancel() override
    {
        if (m_form)
            m_form->offerCancel();
    }
    [[nodiscard]] bool isClosed() const override { return m_form.isNull() || !m_form->isVisible(); }

private:
    QPointer<WorkingForm> m_form;
};

/** A window shown a moment ago is painted only when the display has answered; each is waited for once. */
void waitForNewWindows()
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (!window->isVisible() || window->property(WaitedFor).toBool())
            continue;
        window->setProperty(WaitedFor, true);
        const QPointer<QWindow> awaited = window;
        const QDeadlineTimer deadline(FirstShowMs);
        while (awaited && !awaited->isExposed() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, static_cast<int>(EventPeriodMs));
        if (!awaited)
            return; // the list may have changed as well
    }
}

} // namespace

QtDesktop::QtDesktop(OptionsStore &options) : m_options(options)
{
    m_sinceEventsRan.start();
}

QtDesktop::~QtDesktop()
{
    resetPointer();
}

Answer QtDesktop::MessageBox(const QString &text, const QString &title, Icon icon, Buttons buttons,
                             std::optional<Answer> defaultAnswer)
{
    return MessageWithMore(text, title, icon, buttons, defaultAnswer, {});
}

Answer QtDesktop::MessageWithMore(const QString &text, const QString &title, Icon icon, Buttons buttons,
                                  std::optional<Answer> defaultAnswer, const QString &more)
{
    const PlainPointer pointer;
    QMessageBox box(ownerOfDialogs());
    const QList<Answer> answers = answersOf(buttons);
    for (const Answer answer : answers)
        box.addButton(buttonOf(answer));
    const QPushButton *ownButton = more.isEmpty() ? nullptr : box.addButton(more, QMessageBox::ActionRole);
    fill(box, text, title, icon);
    box.setDefaultButton(buttonOf(defaultAnswer.value_or(answers.first())));
    if (ownButton != nullptr)
        box.setEscapeButton(buttonOf(answers.last()));
    if (m_tabletActive)
        sizeForFingers(box);

    const int pressed = box.exec();
    if (ownButton != nullptr && box.clickedButton() == ownButton)
        return Answer::More;
    for (const Answer answer : answers) {
        if (pressed == buttonOf(answer))
            return answer;
    }
    return answers.last();
}

bool QtDesktop::ShowPreview(Preview &preview)
{
    const PlainPointer pointer;
    frmPreview form(*this, preview, ownerOfDialogs());
    if (m_tabletActive)
        sizeForFingers(form);
    return form.exec() == QDialog::Accepted;
}

QString QtDesktop::InputPrompt(const QString &prompt, const QString &title, const QString &defaultText,
                               bool password)
{
    const PlainPointer pointer;
    InputForm form(ownerOfDialogs());
    form.setPrompt(prompt, title);
    form.setPassword(password);
    if (!defaultText.isEmpty())
        form.setDefaultText(defaultText);
    if (m_tabletActive)
        form.setTablet([this] { ShowKeyboard(); });
    form.exec();
    return form.text();
}

bool QtDesktop::ShowWarning(const QString &text, const QString &key)
{
    const PlainPointer pointer;
    frmMessage form(m_options, ownerOfDialogs());
    form.setWindowTitle(u"Warning"_s);
    form.Message(text);
    if (m_tabletActive)
        sizeForFingers(form);
    try {
        return form.Display(key) == 0;
    } catch (const dao::DaoError &error) {
        // OK was pressed; that the check box can't be kept must not stop the command.
        MessageBox(error.description, u"Warning"_s, Icon::Exclamation);
        return true;
    }
}

std::optional<QString> QtDesktop::ShowOpenDialog(const FileQuestion &question)
{
    const PlainPointer pointer;
    return askForFile(FileDialogKind::Open, question, ownerOfDialogs());
}

std::optional<QString> QtDesktop::ShowSaveDialog(const FileQuestion &question)
{
    const PlainPointer pointer;
    return askForFile(FileDialogKind::Save, question, ownerOfDialogs());
}

std::optional<quint32> QtDesktop::ShowColor(quint32 start)
{
    const PlainPointer pointer;
    QColorDialog dialog(colorOf(start), ownerOfDialogs());
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    arrangeButtons(dialog);
    if (m_tabletActive)
        sizeForFingers(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return colorNumber(dialog.selectedColor());
}

// The font first, then its colour; a cancel at the second question keeps the colour.
std::optional<FontChoice> QtDesktop::ShowFont(const QString &title, const FontChoice &start)
{
    const PlainPointer pointer;
    // A family that isn't there is not in the dialog's list: the one that stands for it is. Left alone, the
    // family stays what it was.
    QFont font(QFontInfo(QFont(start.family)).family());
    font.setPointSizeF(start.pointSize);
    QFontDialog dialog(font, ownerOfDialogs());
    dialog.setWindowTitle(title);
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    const QString offered = dialog.currentFont().family();
    arrangeButtons(dialog);
    if (m_tabletActive)
        sizeForFingers(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    const QFont chosen = dialog.selectedFont();
    return FontChoice{chosen.family() == offered ? start.family : chosen.family(), chosen.pointSizeF(),
                      ShowColor(start.color).value_or(start.color)};
}

bool QtDesktop::isPictureOnClipboard()
{
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    return held != nullptr && held->hasImage();
}

bool QtDesktop::takeFromClipboard(QImage &picture)
{
    const QMimeData *held = QGuiApplication::clipboard()->mimeData();
    if (held == nullptr || !held->hasImage())
        return false;
    picture = qvariant_cast<QImage>(held->imageData());
    return !picture.isNull();
}

QString QtDesktop::BrowseForFolder(const QString &prompt, const QString &title, const QString &startFolder)
{
    const PlainPointer pointer;
    return askForFolder(prompt, title, startFolder, ownerOfDialogs());
}

std::unique_ptr<WorkingWindow> QtDesktop::ShowWorkingForm(const QString &caption, const QString &msg,
                                                          bool withBar)
{
    auto *form = new WorkingForm(ownerOfDialogs());
    form->setCaption(caption);
    form->setMsg(msg);
    if (withBar)
        form->showBar();
    form->show();
    return std::make_unique<WorkingFormHandle>(form);
}

void QtDesktop::ShowHelp(const QString &heading, const QString &body)
{
    const PlainPointer pointer;
    frmHelp form(heading, body, ownerOfDialogs());
    if (m_tabletActive)
        sizeForFingers(form);
    form.exec();
}

bool QtDesktop::isTabletWithoutMouse()
{
    bool touch = false;
    for (const QInputDevice *device : QInputDevice::devices()) {
        const QInputDevice::DeviceType type = device->type();
        if (type == QInputDevice::DeviceType::Mouse || type == QInputDevice::DeviceType::TouchPad)
            return false;
        touch = touch || type == QInputDevice::DeviceType::TouchScreen;
    }
    return touch;
}

bool QtDesktop::ShowKeyboard()
{
    return m_keyboard.show();
}

QPrinter &QtDesktop::printer()
{
    if (!m_printer)
        m_printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    return *m_printer;
}

std::shared_ptr<QPagedPaintDevice> QtDesktop::ShowPrinterDialog()
{
    const PlainPointer pointer;
    QPrintDialog dialog(&printer(), ownerOfDialogs());
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    arrangeButtons(dialog);
    if (m_tabletActive)
        sizeForFingers(dialog);
    return dialog.exec() == QDialog::Accepted ? m_printer : nullptr;
}

void QtDesktop::ShowPrintPreview(const QString &title, const std::function<void(QPagedPaintDevice &)> &draw)
{
    const PlainPointer pointer;
    QPrintPreviewDialog dialog(&printer(), ownerOfDialogs());
    dialog.setWindowTitle(title);
    dialog.resize(PreviewSize.boundedTo(dialog.screen()->availableSize()));
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                     [&draw](QPrinter *device) { draw(*device); });
    if (m_tabletActive)
        sizeForFingers(dialog);
    dialog.exec();
}

bool QtDesktop::OpenUrl(const QUrl &url)
{
    return QDesktopServices::openUrl(url);
}

void QtDesktop::setHourglass(bool on)
{
    if (on && m_hourglasses++ == 0)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!on && m_hourglasses > 0 && --m_hourglasses == 0)
        QGuiApplication::restoreOverrideCursor();
}

void QtDesktop::resetPointer()
{
    if (m_hourglasses > 0)
        QGuiApplication::restoreOverrideCursor();
    m_hourglasses = 0;
}

void QtDesktop::letEventsRun()
{
    QCoreApplication::processEvents();
    waitForNewWindows();
    m_sinceEventsRan.start();
}

bool QtDesktop::inputWaiting()
{
    return m_sinceEventsRan.elapsed() >= EventPeriodMs;
}

} // namespace quaverly
