// Owning wrappers of OS handles, and the synchronisation objects. What fails throws CWinException; nothing here returns
// an error code.
//
//     CEvent stop(nullptr, TRUE, FALSE, nullptr);      // manual reset, not signalled, unnamed
//     stop.Set();
//     ::WaitForSingleObject(stop, INFINITE);           // converts to the raw handle; closed with the object
//
// Destructors close, and a close that fails throws there too. During stack unwinding that ends the program, as every
// second exception does.

#ifndef VANTOR_OBJECT_H
#define VANTOR_OBJECT_H

#include <vantor/Platform.h>

namespace vantor
{
// Owns one OS handle. The value that means "no handle" is fixed at construction and differs between classes, so ask
// IsCreated(): an empty CFile holds INVALID_HANDLE_VALUE, which is not null. One thread at a time, here and below,
// unless a class says otherwise.
class VANTOR_API CHandle
{
public:
    explicit CHandle(void* hInvalid) noexcept : m_hInvalid(hInvalid), m_h(hInvalid) {}
    CHandle(const CHandle&) = delete;
    CHandle& operator=(const CHandle&) = delete;

    // Virtual operations in slot order; derived classes append theirs.
    virtual ~CHandle() noexcept(false);   // closes by CHandle::Close, whatever a derived class makes of Close
    virtual bool IsCreated() const;
    virtual void Close();   // the object is empty afterwards, also when the close failed and threw

    // Takes ownership of h; false, and nothing changes, if the object already holds a handle.
    bool Attach(void* h);
    // Gives ownership away; the object is empty afterwards.
    void* Detach();
    operator void*() const noexcept { return m_h; }

protected:
    void* const m_hInvalid;
    void* m_h;
};

// Set and Reset may be called from any thread.
class VANTOR_API CEvent : public CHandle
{
public:
    // Creates an event; without arguments it resets itself, is not signalled and has no name.
    explicit CEvent(_SECURITY_ATTRIBUTES* sa = nullptr, int bManualReset = FALSE, int bInitialState = FALSE,
                    const wchar_t* name = nullptr);
    // Opens an existing named event.
    CEvent(unsigned long access, int bInherit, const wchar_t* name);

    void Set();
    void Reset();
};

// With a name it is shared between processes. Lock and Unlock may be called from any thread.
class VANTOR_API CMutex : public CHandle
{
public:
    explicit CMutex(_SECURITY_ATTRIBUTES* sa = nullptr, int bInitialOwner = FALSE, const wchar_t* name = nullptr);

    // Waits up to `timeout` milliseconds, or for ever with INFINITE. False when the time is up. A mutex whose owner
    // ended without a release counts as acquired.
    bool Lock(unsigned long timeout);
    void Unlock();
};

// Holds no handle: IsCreated() is always false. Lock and Unlock may be called from any thread; nothing throws.
class VANTOR_API CCriticalSection : public CHandle
{
public:
    CCriticalSection();
    ~CCriticalSection() noexcept(false) override;

    // True once entered. With wait false it does not block, and is false if another thread is inside.
    bool Lock(bool wait);
    void Unlock();

private:
    CRITICAL_SECTION m_section;
};

// An OVERLAPPED with an event of its own, for CFile::Read and the like. Its fields are the record's: Offset, OffsetHigh
// and hEvent are used directly, and `&overlapped` is an OVERLAPPED*. Must outlive the operation that it was given to.
class VANTOR_API COverlapped : public OVERLAPPED
{
public:
    // The arguments are those of CEvent; offsets start at 0.
    explicit COverlapped(_SECURITY_ATTRIBUTES* sa = nullptr, int bManualReset = FALSE, int bInitialState = FALSE,
                         const wchar_t* name = nullptr);
    COverlapped(const COverlapped&) = delete;
    COverlapped& operator=(const COverlapped&) = delete;
    virtual ~COverlapped() noexcept(false);

    void SetEvent();
    void ResetEvent();

private:
    CEvent m_event;
};

// A Winsock event. Set and Reset may be called from any thread.
class VANTOR_API CWSAEvent : public CHandle
{
public:
    CWSAEvent();

    // By WSACloseEvent. Unlike CHandle::Close, a failure leaves the event held, and a later Close tries again. The
    // destructor closes with CloseHandle: a Winsock event is an ordinary event.
    void Close() override;

    void Set();
    void Reset();
};

// An OVERLAPPED with a Winsock event, for the calls of a socket. See COverlapped.
class VANTOR_API CWSAOverlapped : public OVERLAPPED
{
public:
    CWSAOverlapped();
    CWSAOverlapped(const CWSAOverlapped&) = delete;
    CWSAOverlapped& operator=(const CWSAOverlapped&) = delete;
    virtual ~CWSAOverlapped() noexcept(false);

    void SetEvent();
    void ResetEvent();

private:
    CWSAEvent m_event;
};
}   // namespace vantor

#endif
