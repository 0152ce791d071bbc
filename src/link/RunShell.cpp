#include "RunShell.h"

#include "document/Fault.h"

#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <memory>
#include <vector>

namespace {

// What the operating system reports as the exit code of a process that has not ended.
constexpr std::int32_t StillActive = 259;
constexpr int PauseMs = 500;

std::unique_ptr<QProcess> startProgram(const QString& command)
{
    auto process = std::make_unique<QProcess>();
    // Nothing is read from or written to the program: a pipe left unread would stall it once full,
    // and one left behind when the designer quits would end it on its next write.
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setInputChannelMode(QProcess::ForwardedInputChannel);
    process->startCommand(command);
    if (!process->waitForStarted()) {
        throw Fault(QStringLiteral("Cannot start \"%1\": %2")
                        .arg(QDir::toNativeSeparators(process->program()), process->errorString()));
    }
    return process;
}

std::int32_t exitCodeOf(const QProcess& process)
{
    return process.state() == QProcess::NotRunning ? process.exitCode() : StillActive;
}

// Handles the application's events for half a second. Returns false when the application is quitting
// instead: exit() ends every nested event loop before its time is up.
bool pauseHandlingEvents()
{
    QEventLoop loop;
    bool paused = false;
    QTimer::singleShot(PauseMs, &loop, [&] {
        paused = true;
        loop.quit();
    });
    loop.exec();
    return paused;
}

// Destroying a QProcess ends its program, so one that must outlive the wait is kept, reachable, until
// the designer itself ends.
void leaveRunning(std::unique_ptr<QProcess> process)
{
    static auto* const leftRunning = new std::vector<QProcess*>;
    leftRunning->push_back(process.release());
}

} // namespace

std::int32_t RunShell(const QString& command)
{
    std::unique_ptr<QProcess> process = startProgram(command);
    // Any code above 1, not only the still-active one, keeps the wait going: a tool that ends with
    // such a code is taken as still running, as intended.
    std::int32_t code = exitCodeOf(*process);
    while (code > 1) {
        if (!pauseHandlingEvents()) {
            leaveRunning(std::move(process));
            break;
        }
        code = exitCodeOf(*process);
    }
    return code;
}
