/* A pseudo-terminal has no modem lines: asked for them it says that it is none, and Wine then cannot wait for events of
   the port. Preloaded into Wine this library answers instead: CTS, DSR and CD are on, DTR and RTS are remembered.

   Needs no header and no start-up code of the C library, so that a compiler without its 32-bit half makes both widths:
       cc -shared -fPIC -nostdlib -fno-stack-protector -o modem_lines.so modem_lines.c          (-m32 for 32 bits) */

#include <stdarg.h>

/* Of Linux on x86. */
enum { ENOTTY = 25, EINVAL = 22 };
enum { TIOCMGET = 0x5415, TIOCMBIS, TIOCMBIC, TIOCMSET };
enum { DTR = 0x002, RTS = 0x004, CTS = 0x020, CD = 0x040, DSR = 0x100 };

extern void *dlsym(void *library, const char *name);
extern int *__errno_location(void);
extern int isatty(int fd);

typedef int ioctl_call(int fd, unsigned long request, ...);

static void *const next_library = (void *)-1L;
static const int outputs = DTR | RTS;
static int lines = CTS | DSR | CD;

static int answer(const char *name, int fd, unsigned long request, int *argument)
{
    ioctl_call *const system_call = (ioctl_call *)dlsym(next_library, name);
    const int result = system_call(fd, request, argument);
    if (result >= 0 || (*__errno_location() != ENOTTY && *__errno_location() != EINVAL) || !isatty(fd))
        return result;

    switch (request)
    {
    case TIOCMGET: *argument = lines; return 0;
    case TIOCMSET: lines = (lines & ~outputs) | (*argument & outputs); return 0;
    case TIOCMBIS: lines |= *argument & outputs; return 0;
    case TIOCMBIC: lines &= ~(*argument & outputs); return 0;
    }
    *__errno_location() = ENOTTY;
    return result;
}

int ioctl(int fd, unsigned long request, ...)
{
    va_list rest;
    va_start(rest, request);
    int *const argument = va_arg(rest, int *);
    va_end(rest);
    return answer("ioctl", fd, request, argument);
}

/* The name in programs of 32 bits that count time in 64. */
int __ioctl_time64(int fd, unsigned long request, ...)
{
    va_list rest;
    va_start(rest, request);
    int *const argument = va_arg(rest, int *);
    va_end(rest);
    return answer("__ioctl_time64", fd, request, argument);
}
