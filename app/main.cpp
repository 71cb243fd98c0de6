// The workstation program: build the workstation over the program folder,
// run the start-up, show the main screen, and hand over to the event loop.
//
//   gaschart [--pictures FOLDER] [--local-wits DEVICE]
//
// --pictures saves a picture of every screen, and the words on them, into
// FOLDER every two seconds, for someone helping from afar.
// --local-wits is for the demonstration with the rig recorder simulator:
// DEVICE becomes serial port 1 and "Use Local WITS" is ticked once the
// workstation is up, as the operator would tick it.
#include "acquisition/startup.h"
#include "acquisition/tick_table.h"
#include "platform/stop_signals.h"
#include "ui/desktop.h"
#include "ui/pictures.h"
#include "wits/wits_link.h"
#include "workstation/workstation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <memory>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName("gaschart");
    QCommandLineParser args;
    args.setApplicationDescription("Mud-gas logging workstation");
    args.addHelpOption();
    const QCommandLineOption pictures(
        "pictures", "Save pictures of every screen into <folder> every two seconds.", "folder");
    args.addOption(pictures);
    const QCommandLineOption localWits(
        "local-wits", "Take WITS from <device> as serial port 1 and tick Use Local WITS.",
        "device");
    args.addOption(localWits);
    args.process(app);

    ui::Desktop desktop;
    Workstation ws(QCoreApplication::applicationDirPath(), &desktop.dialogs());
    acq::Wire(ws);
    // The views go before the workstation does, however main() is left.
    struct Detach {
        ui::Desktop& desktop;
        ~Detach() { desktop.detach(); }
    } detach{desktop};
    // Built before the start-up, so the information box can show its work.
    desktop.attach(ws);
    if (!acq::Form_Load(ws)) return 1;
    // A stop from the system closes the job file as an exit does.
    platform::StopSignals stop([&](int) {
        acq::StopWithoutQuestion(ws);
        // Straight out of the loop: the windows are not asked to close again.
        QCoreApplication::exit(0);
    });
    std::unique_ptr<ui::ScreenPictures> shots;
    if (args.isSet(pictures))
        shots = std::make_unique<ui::ScreenPictures>(desktop, args.value(pictures));
    desktop.showMain();
    if (args.isSet(localWits)) {
        ws.ports.place(1, args.value(localWits));
        // From inside the loop: the search waits with the timers running.
        QTimer::singleShot(0, &app, [&ws] {
            ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
            wits::ck_Use_Local_WITS_Click(ws);
        });
    }
    return app.exec();
}
