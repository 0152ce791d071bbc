#include "TransmissionSession.h"

#include <atomic>

namespace {

std::atomic<int> sessionsRunning { 0 };

} // namespace

TransmissionSession::TransmissionSession()
{
    ++sessionsRunning;
}

TransmissionSession::~TransmissionSession()
{
    --sessionsRunning;
}

bool TransmissionSession::running()
{
    return sessionsRunning > 0;
}
