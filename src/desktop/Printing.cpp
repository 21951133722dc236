// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/Printing.h"

#include "desktop/Desktop.h"
#include "desktop/Guard.h"

#include <QPaintEngine>
#include <QPrinter>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace quaverly {

namespace {

/** Every page of a preview is kept in memory. */
constexpr int MostPreviewed = 100;
/** Hardly any page has more. */
constexpr int ParagraphsOfPage = 60;

} // namespace

void printDocument(Desktop &desktop, const QTextDocument &document, const richtext::PrintMargins &margins)
{
    const std::shared_ptr<QPagedPaintDevice> device = desktop.ShowPrinterDialog();
    if (!device)
        return;
    const Hourglass hourglass(desktop);
    const auto window = desktop.ShowWorkingForm(u"Printing..."_s, u"\nPlease wait..."_s, true);
    desktop.letEventsRun();
    const auto goesOn = [&](double share) {
        window->setBar(static_cast<int>(share * FullBarTwips));
        if (desktop.inputWaiting())
            desktop.letEventsRun();
        return !window->isClosed();
    };
    const bool isWhole = richtext::PrintRichText(document, *device, {.margins = margins, .goesOn = goesOn});
    if (auto *printer = dynamic_cast<QPrinter *>(device.get()); printer && !isWhole)
        printer->abort();
}

void previewDocument(Desktop &desktop, const QString &title, const QTextDocument &document,
                     const richtext::PrintMargins &margins)
{
    const bool isLong = document.blockCount() > MostPreviewed * ParagraphsOfPage;
    const QString shown = isLong ? title + u" (the first %1 pages)"_s.arg(MostPreviewed) : title;
    desktop.ShowPrintPreview(shown, [&](QPagedPaintDevice &device) {
        guarded(desktop, title, [&] {
            const Hourglass hourglass(desktop);
            // The preview has a button for the real printer as well, which is to get every page.
            const bool isPreview = device.paintEngine()->type() == QPaintEngine::Picture;
            richtext::PrintRichText(document, device,
                                    {.margins = margins, .mostPages = isPreview ? MostPreviewed : 0});
        });
    });
}

} // namespace quaverly
