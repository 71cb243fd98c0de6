// The workstation program: build the workstation over the program folder,
// run the start-up, show the main screen, and hand over to the event loop.
//
//   gaschart [--pictures FOLDER] [--local-wits DEVICE] [--stall-log FILE]
//            [--help] [--version]
//
// --pictures saves a picture of every screen, and the words on them, into
// FOLDER every two seconds, for someone helping from afar.
// --local-wits is for the demonstration with the rig recorder simulator:
// DEVICE becomes serial port 1 and "Use Local WITS" is ticked once the
// workstation is up, as the operator would tick it. --stall-log writes the
// longest hold of the event loop, once a second, for a long unattended run.
// --help and --version
// answer without a screen, so they work over ssh.
#include "acquisition/startup.h"
#include "acquisition/tick_table.h"
#include "platform/folder_choice.h"
#include "platform/stall_watch.h"
#include "platform/stop_signals.h"
#include "ui/desktop.h"
#include "ui/pictures.h"
#include "wits/wits_link.h"
#include "workstation/workstation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>
#include <cstring>
#include <memory>

namespace {

// Asked only for words: no window, so no display is needed.
bool OnlyWords(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        for (const char* w : {"-h", "--help", "--help-all", "-v", "--version"})
            if (std::strcmp(argv[i], w) == 0) return true;
    return false;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication::setApplicationName("gaschart");
    QCoreApplication::setApplicationVersion(GASCHART_REVISION);
    std::unique_ptr<QCoreApplication> app;
    if (OnlyWords(argc, argv))
        app = std::make_unique<QCoreApplication>(argc, argv);
    else
        app = std::make_unique<QApplication>(argc, argv);

    // Beside the program when it runs from its own writable folder; an
    // installed program keeps the user's files in the user's data folder.
    const platform::FolderChoice folder = platform::ChooseProgramFolder(
        QCoreApplication::applicationDirPath(),
        QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));

    QCommandLineParser args;
    args.setApplicationDescription("Mud-gas logging workstation.\nSettings, logs and jobs: " +
                                   QDir::toNativeSeparators(folder.path));
    args.addHelpOption();
    args.addVersionOption();
    const QCommandLineOption pictures(
        "pictures", "Save pictures of every screen into <folder> every two seconds.", "folder");
    args.addOption(pictures);
    const QCommandLineOption localWits(
        "local-wits", "Take WITS from <device> as serial port 1 and tick Use Local WITS.",
        "device");
    args.addOption(localWits);
    const QCommandLineOption stallLog(
        "stall-log", "Append the longest hold of the event loop to <file> once a second.", "file");
    args.addOption(stallLog);
    args.process(*app); // --help, --version and a wrong option end here

    // The first start of a user fills the folder; later starts (and updates
    // of the package) only add what is missing, never overwrite.
    if (folder.perUser) {
        QDir().mkpath(folder.path);
        platform::FillFromShared(folder.shared, folder.path);
    }

    ui::Desktop desktop;
    Workstation ws(folder.path, &desktop.dialogs());
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
    std::unique_ptr<platform::StallWatch> stalls;
    if (args.isSet(stallLog)) stalls = std::make_unique<platform::StallWatch>(args.value(stallLog));
    desktop.showMain();
    if (args.isSet(localWits)) {
        ws.ports.place(1, args.value(localWits));
        // From inside the loop: the search waits with the timers running.
        QTimer::singleShot(0, app.get(), [&ws] {
            ws.fm_WITS.ck_Use_Local_WITS.setChecked(true);
            wits::ck_Use_Local_WITS_Click(ws);
        });
    }
    return app->exec();
}
