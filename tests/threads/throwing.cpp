// Lets an exception leave CAPC::Run, in spite of what it promises.

#include <vantor/Thread.h>

#include <cstdio>

namespace
{
class CThrowing : public vantor::CAPC
{
public:
    CThrowing() : CAPC(0) {}

    unsigned long Run() override
    {
        std::fputs("throwing\n", stdout);
        std::fflush(stdout);
        throw 1;
    }
};
}   // namespace

int main()
{
    try
    {
        CThrowing().Invoke();
    }
    catch (...)
    {
        std::fputs("caught\n", stdout);
        return 1;
    }
    std::fputs("survived\n", stdout);
    return 0;
}
