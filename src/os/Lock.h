// Holds a critical section for a scope.

#ifndef VANTOR_SRC_LOCK_H
#define VANTOR_SRC_LOCK_H

#include <vantor/Object.h>

namespace vantor
{
class CLock
{
public:
    explicit CLock(CCriticalSection& section) : m_section(section) { m_section.Lock(true); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;
    ~CLock() { m_section.Unlock(); }

private:
    CCriticalSection& m_section;
};
}   // namespace vantor

#endif
