// exit_after_delay [CODE [DELAY_MS [ENDED_FILE]]]: sleeps DELAY_MS milliseconds (default 0), writes
// into ENDED_FILE, when given, the time it ends at in milliseconds since the epoch, and ends with exit
// code CODE (default 0).

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <thread>

namespace {

int argumentOr(int argc, char* argv[], int index, int fallback)
{
    return index < argc ? std::atoi(argv[index]) : fallback;
}

void writeEndTime(const char* path)
{
    using namespace std::chrono;
    std::ofstream(path) << duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

} // namespace

int main(int argc, char* argv[])
{
    std::this_thread::sleep_for(std::chrono::milliseconds(argumentOr(argc, argv, 2, 0)));
    if (argc > 3) {
        writeEndTime(argv[3]);
    }
    return argumentOr(argc, argv, 1, 0);
}
