// SPDX-License-Identifier: GPL-3.0-or-later
#include "main/Screenshots.h"

#include "main/NameList.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

constexpr int StepMilliseconds = 150;
/** Steps without a message box until the screen counts as settled. */
constexpr int SettledSteps = 4;

} // namespace

Screenshots::Screenshots(QString folder, std::function<NameList *()> mainScreen,
                         std::function<void()> finished)
    : m_folder(std::move(folder)), m_mainScreen(std::move(mainScreen)), m_finished(std::move(finished))
{}

void Screenshots::start()
{
    QDir().mkpath(m_folder);
    QTimer::singleShot(StepMilliseconds, this, &Screenshots::step);
}

void Screenshots::save(QWidget &window, const QString &name)
{
    window.grab().save(QDir(m_folder).filePath(name + u".png"_s));
}

void Screenshots::step()
{
    QTimer::singleShot(StepMilliseconds, this, &Screenshots::step);
    NameList *screen = m_mainScreen();
    if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
        m_quietSteps = 0;
        save(*dialog, dialog->objectName().isEmpty() ? u"message"_s : dialog->objectName());
        dialog->accept();
        return;
    }
    if (screen == nullptr || ++m_quietSteps < SettledSteps)
        return;
    if (!m_aboutAsked) {
        m_aboutAsked = true;
        m_quietSteps = 0;
        save(*screen, u"NameList"_s);
        screen->findChild<QAction *>(u"AboutBox"_s)->trigger();
        return;
    }
    m_finished();
}

} // namespace quaverly
