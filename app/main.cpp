// The workstation program: build the workstation over the program folder,
// run the start-up, show the main screen, and hand over to the event loop.
#include "acquisition/startup.h"
#include "acquisition/workstation.h"
#include "ui/desktop.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName("gaschart");
    ui::Desktop desktop;
    Workstation ws(QCoreApplication::applicationDirPath(), &desktop.dialogs());
    // The views go before the workstation does, however main() is left.
    struct Detach {
        ui::Desktop& desktop;
        ~Detach() { desktop.detach(); }
    } detach{desktop};
    // Built before the start-up, so the information box can show its work.
    desktop.attach(ws);
    if (!acq::Form_Load(ws)) return 1;
    desktop.showMain();
    return app.exec();
}
