// The exception hierarchy. Every exception knows where it was raised and describes itself in words: the source of the
// error, a technical message, a message for the user. Thrown by value, caught by reference:
//
//     try
//     {
//         CFile trace(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
//     }
//     catch (const CStdException& e)
//     {
//         e.ReportError(hWnd, MB_ICONHAND | MB_OK, L"", 0);    // "File not found." in the user's language
//     }

#ifndef VANTOR_EXCEPTIONS_H
#define VANTOR_EXCEPTIONS_H

#include <vantor/Object.h>
#include <vantor/Strings.h>

#include <memory>

namespace vantor
{
// Shares the ownership of one object; the last handle to go deletes it. Handles to one object may be copied and
// released on several threads, one handle is used by one thread at a time. The object itself may be null.
template <class T>
class CSmartPtr
{
public:
    CSmartPtr() noexcept : m_block(nullptr) {}

    // Takes ownership of the object, also if this throws for lack of memory.
    explicit CSmartPtr(T* object)
    {
        std::unique_ptr<T> owner(object);
        m_block = new Block;
        m_block->object = owner.release();
    }

    CSmartPtr(const CSmartPtr& other) noexcept : m_block(other.m_block)
    {
        if (m_block)
            ::InterlockedIncrement(&m_block->refCount);
    }

    CSmartPtr& operator=(const CSmartPtr& other)
    {
        CSmartPtr copy(other);
        std::swap(m_block, copy.m_block);
        return *this;
    }

    virtual ~CSmartPtr() { Release(); }

    T* get() const noexcept { return m_block ? m_block->object : nullptr; }
    T* operator->() const noexcept { return get(); }
    T& operator*() const noexcept { return *get(); }
    explicit operator bool() const noexcept { return get() != nullptr; }

private:
    struct Block
    {
        T* object = nullptr;
        LONG refCount = 1;
        CCriticalSection lock;   // guards changes of `object`
    };

    void Release()
    {
        Block* block = std::exchange(m_block, nullptr);
        if (!block || ::InterlockedDecrement(&block->refCount) != 0)
            return;

        block->lock.Lock(true);
        std::unique_ptr<T> object(std::exchange(block->object, nullptr));
        block->lock.Unlock();
        delete block;
    }

    Block* m_block;
};

// The root. `fileName` and `function` are kept as the thrower passes them (".\File", "CreateFile"); a null pointer
// leaves them empty. `line` names the place that raised the exception: a fixed number, listed in docs/failures.md.
class VANTOR_API CStdException
{
public:
    class CExInfo;

    explicit CStdException(unsigned int line = 0, const wchar_t* fileName = nullptr, const wchar_t* function = nullptr);
    CStdException(const CStdException&) = default;
    CStdException& operator=(const CStdException&) = default;

    // Virtual operations in slot order; append-only.
    virtual ~CStdException();
    virtual CSmartPtr<CStdException> Clone() = 0;
    // Throws a copy of the most-derived type; called through a null pointer (`e->CWinException::Throw()`) it does
    // nothing.
    virtual void Throw() const = 0;
    // Text getters never throw. False means that no text could be made; what stands in `out` then is up to the class.
    virtual bool GetSource(ustring& out) const = 0;
    virtual bool GetErrorMessage(ustring& out) const = 0;
    virtual bool GetErrorMessageUI(ustring& out) const;   // for the user; the technical message unless overridden
    // Shows the exception and waits for the user, on a thread that can own windows. `type` is that of MessageBox;
    // `text` and `number` are technical details of the application's own (a second file and line, say). Returns the id
    // of the pressed button, IDOK to IDNO.
    virtual int ReportError(HWND parent, unsigned int type, const wchar_t* text, unsigned int number) const;

    // The same for an exception that is gone.
    static int ReportError(const CExInfo& info, HWND parent, unsigned int type, const wchar_t* text,
                           unsigned int number);

    unsigned int GetLine() const { return m_line; }
    ustring GetFileName() const { return m_fileName; }
    ustring GetFunction() const { return m_function; }

    // The application's name as the user knows it, for titles. Set it once at start-up; null or empty means the
    // executable's file name without extension, which is looked up at each call.
    static void SetAppName(const wchar_t* name);
    static ustring GetAppName();

private:
    unsigned int m_line;
    ustring m_fileName;
    ustring m_function;

    static ustring m_strAppName;
};

// A copyable snapshot of all texts of an exception, which it may outlive. A text that the exception cannot give is
// empty.
class VANTOR_API CStdException::CExInfo
{
public:
    CExInfo() = default;
    CExInfo(const CStdException& e);

    unsigned int GetLine() const { return m_line; }
    ustring GetFileName() const { return m_fileName; }
    ustring GetFunction() const { return m_function; }
    ustring GetSource() const { return m_source; }
    ustring GetErrorMessage() const { return m_errorMessage; }
    ustring GetErrorMessageUI() const { return m_errorMessageUI; }

    void Clear();

private:
    unsigned int m_line = 0;
    ustring m_fileName;
    ustring m_function;
    ustring m_source;
    ustring m_errorMessage;
    ustring m_errorMessageUI;
};

// A failed call of the operating system. Source: "Win32", translated. Message: the system's own, line break included;
// else the text for the code in "Win32Errors.txt" beside the library; else "Unknown error: ...", with the result false.
class VANTOR_API CWinException : public CStdException
{
public:
    explicit CWinException(unsigned int line = 0, const wchar_t* fileName = nullptr, const wchar_t* function = nullptr,
                           unsigned long errorCode = 0);

    CSmartPtr<CStdException> Clone() override;
    void Throw() const override;
    bool GetSource(ustring& out) const override;
    bool GetErrorMessage(ustring& out) const override;

    unsigned long GetErrorCode() const { return m_errorCode; }

private:
    unsigned long m_errorCode;
};

// An error reply of the receiver. Message: the reply as received. For the user: its text in m_aINT2UI, else the reply.
class VANTOR_API CCommException : public CStdException
{
public:
    struct INT2UI
    {
        const wchar_t* replyText;   // as the receiver sends it: "{2,,text}"
        const wchar_t* uiText;      // English, a key of the language files
    };
    static constexpr int ReplyCount = 35;
    // Searched from the front; row 32 repeats row 15 and is never reached.
    static const INT2UI m_aINT2UI[ReplyCount];

    // A null errorMessage (the reply) or source (where it came from) is empty.
    explicit CCommException(unsigned int line = 0, const wchar_t* fileName = nullptr, const wchar_t* function = nullptr,
                            const wchar_t* errorMessage = nullptr, const wchar_t* source = nullptr);

    CSmartPtr<CStdException> Clone() override;
    void Throw() const override;
    bool GetSource(ustring& out) const override;
    bool GetErrorMessage(ustring& out) const override;
    bool GetErrorMessageUI(ustring& out) const override;

private:
    ustring m_errorMessage;
    ustring m_source;
};

// A failure of the matrix package. Source: "Matrix Library", message: the kind's text, both translated. A kind that is
// none of these has no message: the result is false and `out` stays as it was.
class VANTOR_API CMatrixException : public CStdException
{
public:
    enum EException : int
    {
        NoError,
        InvalidDimension,
        IncompatibleDimension,
        InvalidIndex,
        DivisionByZero,
    };

    CMatrixException(unsigned int line, const wchar_t* fileName, const wchar_t* function, EException kind);

    CSmartPtr<CStdException> Clone() override;
    void Throw() const override;
    bool GetSource(ustring& out) const override;
    bool GetErrorMessage(ustring& out) const override;

private:
    EException m_kind;
};
}   // namespace vantor

#endif
