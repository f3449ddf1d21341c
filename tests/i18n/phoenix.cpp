// A singleton that is used once more after its exit handler ran: the static object below is older, so it is destroyed
// later.

#include <vantor/Translator.h>

#include <cstdio>

namespace
{
struct CBird
{
    CBird() { std::printf("born "); }
    virtual ~CBird() { std::printf("died with %d ", value); }

    int value = 0;
};

struct CLateUser
{
    ~CLateUser()
    {
        CBird& bird = vantor::CPhoenixSingleton<CBird>::Ref();
        std::printf("seen with %d ", bird.value);
        bird.value = 2;
        std::printf("seen with %d ", vantor::CPhoenixSingleton<CBird>::Ref().value);
        std::fflush(stdout);
    }
} lateUser;
}   // namespace

int main()
{
    vantor::CPhoenixSingleton<CBird>::Ref().value = 1;
}
