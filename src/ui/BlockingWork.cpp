#include "BlockingWork.h"

#include <QEventLoop>
#include <QThread>

#include <exception>
#include <memory>

void runBlockingWork(const std::function<void()>& work)
{
    std::exception_ptr failure;
    std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            work();
        } catch (...) {
            failure = std::current_exception();
        }
    }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
    if (failure) {
        std::rethrow_exception(failure);
    }
}
