// Threads, work that runs while the windows stay alive, and waits that can be cancelled.
//
//     struct CUpload : CAPC
//     {
//         CUpload() : CAPC(QS_PAINT) {}                     // windows are painted meanwhile, and that is all
//         unsigned long Run() override { return Send(); }   // on a thread of its own
//     } upload;
//     if (upload.Invoke() == 0)
//         MsgSleep(500, stop);                              // throws error 1223 if the event `stop` is set

#ifndef VANTOR_THREAD_H
#define VANTOR_THREAD_H

#include <vantor/Object.h>

namespace vantor
{
// Owns a thread's handle; closing it, by Close or the destructor, neither stops the thread nor waits for its end. What
// fails throws CWinException.
class VANTOR_API CThread : public CHandle
{
public:
    CThread();

    void Close() override;   // the identifier is 0 afterwards

    // Closes what is held first. The arguments are those of CreateThread. No exception may leave the procedure.
    void Create(_SECURITY_ATTRIBUTES* sa, unsigned long stackSize, unsigned long(WINAPI* proc)(void*), void* param,
                unsigned long flags);
    void Create(unsigned long(WINAPI* proc)(void*), void* param);

    // Ends it in the middle of whatever it does; what it owned stays as it is. The handle stays open, the identifier is
    // 0 afterwards.
    void Terminate(unsigned long exitCode);

    unsigned long GetId() const noexcept { return m_dwThreadId; }   // of the thread that Create made; 0: none
    int GetPriority() const;
    void SetThreadPriority(int priority);
    // Return how often it was suspended before the call.
    unsigned long Suspend();
    unsigned long Resume();
    unsigned long GetExitCode();   // STILL_ACTIVE while it runs

private:
    unsigned long m_dwThreadId;
};

// An asynchronous procedure call: Run on a worker thread, while the caller's windows get the messages that the mask
// allows, and no others. Must outlive Invoke. Has no virtual destructor: destroy it as what it is.
class VANTOR_API CAPC
{
public:
    // QS_KEY, QS_MOUSEMOVE, QS_MOUSEBUTTON, QS_POSTMESSAGE (WM_USER and above), QS_TIMER, QS_PAINT, or 0 for none.
    explicit CAPC(unsigned long wakeMask) noexcept : m_dwWakeMask(wakeMask) {}

    // Virtual operations in slot order; derived classes append theirs.

    // Returns what Run returned. Call it from the thread that the windows belong to. Whenever a message comes that is
    // allowed, those waiting with it that are not are thrown away, WM_QUIT too; only a repaint stays due until
    // afterwards. Throws CWinException if the thread cannot be made or waited for; in the latter case it goes on
    // running.
    virtual unsigned long Invoke();
    // The work. On the worker thread, so windows are out of bounds, other than by posted messages. No exception may
    // leave it: that ends the program.
    virtual unsigned long Run() = 0;

    // Whether Invoke dispatches this message.
    bool TestMessage(unsigned int message) const noexcept;
    static unsigned long WINAPI ThreadProc(void* param) noexcept;   // param: the CAPC

protected:
    unsigned long m_dwWakeMask;
};

// Wait for `ms` milliseconds, and throw CWinException with ERROR_CANCELLED (1223) as soon as the event is set. MsgSleep
// paints meanwhile; all other messages to the thread's windows are thrown away, WM_QUIT too. With 0 it returns at once,
// without a look at the event. Its time must be finite: with INFINITE it spins for ever and does nothing else.
VANTOR_API void Sleep(unsigned long ms, CEvent& cancel);
VANTOR_API void MsgSleep(unsigned long ms, CEvent& cancel);
VANTOR_API void MsgSleep(unsigned long ms);
}   // namespace vantor

#endif
