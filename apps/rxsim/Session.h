// One side of a line: takes commands off a link, answers them for a receiver, streams its readings; and misbehaves on
// demand, for tests of what talks to it:
//
//     fault delay MS       the next answer comes that many milliseconds late
//     fault silence        it never comes
//     fault half           half of it, without a line end
//     fault garbage        bytes that are no answer
//     fault drop           the connection ends instead
//     fault reply N        the answer is row N of the receiver's replies, 0 to 34, and the command is not carried out
//
// "fault" itself is answered with OK. "bye" ends the session.

#ifndef VANTOR_APPS_SESSION_H
#define VANTOR_APPS_SESSION_H

#include "Receiver.h"

#include <Link.h>

namespace rxsim
{
// Several sessions share a receiver.
struct CSharedReceiver
{
    CReceiver receiver;
    vantor::CCriticalSection section;
};

// Until the other side ends the connection, says "bye", or the event is set. Throws whatever else the link throws.
void Serve(link::CLink& link, CSharedReceiver& shared, vantor::CEvent& cancel);
}   // namespace rxsim

#endif
