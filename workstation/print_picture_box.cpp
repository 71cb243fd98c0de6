#include "workstation/print_picture_box.h"

#include "platform/pdf_page.h"
#include "workstation/events.h"
#include "workstation/help_box.h"
#include "workstation/workstation.h"

namespace station {

namespace {

QString PdfFallback(Workstation& ws, const QImage& picture) {
    const QString path = ws.dialogs().SaveFile(
        QStringLiteral("No printer: save the page as a PDF file"),
        QStringLiteral("PDF File (*.pdf)|*.pdf|All Files (*.*)|*.*"), ws.programDir);
    if (path.isEmpty()) return QStringLiteral("Printing cancelled: no printer and no PDF file.");
    return platform::WriteImagePdf(picture, path, QStringLiteral("Printing Chart"));
}

} // namespace

bool PrintPictureBox(Workstation& ws, const QImage& picture) {
    auto& help = ws.fm_help;
    const QString oldTitle = help.form.caption();
    help.form.setCaption(QStringLiteral("Printing Chart"));
    help_msg(ws, QStringLiteral("PRINTING CHART"));
    help.form.setVisible(true);
    DoEvents(ws);

    PrintResult result;
    if (ws.services.print_picture)
        result = ws.services.print_picture(picture);
    else
        result.kind = PrintResult::NoPrinter;
    if (result.kind == PrintResult::NoPrinter) {
        result.error = PdfFallback(ws, picture);
        result.kind = result.error.isEmpty() ? PrintResult::Printed : PrintResult::Failed;
    }
    if (result.kind == PrintResult::Failed) {
        help_msg(ws, QStringLiteral("Print Error: ") + result.error);
        ws.dialogs().MsgBox(QStringLiteral("Print Error: ") + result.error, platform::Buttons::Ok,
                            QStringLiteral("Printing Chart"), platform::Icon::Exclamation);
    }
    help.form.setVisible(false);
    help.form.setCaption(oldTitle);
    return result.kind == PrintResult::Printed;
}

} // namespace station
