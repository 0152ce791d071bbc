#include "FileSizeLimit.h"

#include <csignal>
#include <exception>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void limitFileSize(qint64 limitBytes)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit {};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = static_cast<rlim_t>(limitBytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

void writeAll(int fd, const QByteArray& bytes)
{
    for (qsizetype written = 0; written < bytes.size();) {
        const ssize_t count
            = write(fd, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (count <= 0) {
            return;
        }
        written += count;
    }
}

QByteArray readAll(int fd)
{
    QByteArray bytes;
    char chunk[4096];
    for (ssize_t count; (count = read(fd, chunk, sizeof chunk)) > 0;) {
        bytes.append(chunk, count);
    }
    return bytes;
}

} // namespace

QByteArray runWithFileSizeLimit(qint64 limitBytes, const std::function<QByteArray()>& work)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        return {};
    }
    const pid_t child = fork();
    if (child == 0) {
        close(pipeEnds[0]);
        limitFileSize(limitBytes);
        QByteArray report;
        try {
            report = work();
        } catch (const std::exception& error) {
            // Unwinding on would run the rest of the parent's tests in the child.
            report = QByteArray("the work threw: ").append(error.what());
        }
        writeAll(pipeEnds[1], report);
        // Straight out: the parent's exit handlers and its temporary folders are not the child's to run.
        _exit(0);
    }
    close(pipeEnds[1]);
    const QByteArray report = child > 0 ? readAll(pipeEnds[0]) : QByteArray();
    close(pipeEnds[0]);
    int status = 0;
    if (child > 0) {
        waitpid(child, &status, 0);
    }
    return report;
}
