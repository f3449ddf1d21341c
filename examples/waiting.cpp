// Waiting: one program at a time, and a read from a pipe that goes on in the background until it is done or called off.

#include <vantor/vantor.h>

#include <cstdio>

namespace
{
using namespace vantor;

constexpr wchar_t PipeName[] = L"\\\\.\\pipe\\vantor waiting example";

// This side of the link, for reads that go on in the background.
void OpenPipe(CFile& link)
{
    link.Attach(::CreateNamedPipeW(PipeName, PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED, 0, 1, 64, 64, 0, nullptr));
    if (!link.IsCreated())
        throw CWinException(1, L".\\waiting", L"CreateNamedPipe", ::GetLastError());
}

void WaitForReply(CFile& link, const CEvent& stop, CFile& receiver)
{
    char reply[16] = {};
    unsigned int done = 0;
    COverlapped overlapped;
    const bool atOnce = link.Read(reply, sizeof reply, done, &overlapped);
    std::printf("read: %s\n", atOnce ? "done at once" : "still running");

    receiver.Write("OK", 2, done, nullptr);
    const HANDLE events[] = {overlapped.hEvent, stop};
    if (::WaitForMultipleObjects(2, events, FALSE, INFINITE) != WAIT_OBJECT_0)
        return;
    std::printf("reply: %s\n", reply);
}
}   // namespace

int main()
try
{
    CMutex single(nullptr, FALSE, L"vantor waiting example");   // with a name it is shared by all programs
    if (!single.Lock(0))
        return 1;

    CFile link;
    OpenPipe(link);
    CFile receiver(PipeName, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    CEvent stop(nullptr, TRUE, FALSE, nullptr);   // stays set once it is
    WaitForReply(link, stop, receiver);

    stop.Set();
    std::printf("stop: %s\n", ::WaitForSingleObject(stop, 0) == WAIT_OBJECT_0 ? "set" : "not set");
    single.Unlock();
}
catch (const CWinException& e)
{
    std::printf("failed with error %lu\n", e.GetErrorCode());
    return 1;
}
