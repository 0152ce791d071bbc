#pragma once

// Marks a transmission running on a thread of its own. The session's calls must follow one another
// with no other call of the link in between, so the reception monitor does not poll while one runs.
class TransmissionSession
{
public:
    TransmissionSession();
    ~TransmissionSession();
    TransmissionSession(const TransmissionSession&) = delete;
    TransmissionSession& operator=(const TransmissionSession&) = delete;

    static bool running();
};
