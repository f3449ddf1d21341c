// A library that does one thing, and that nothing but the test loads.

extern "C" __declspec(dllexport) int Answer()
{
    return 42;
}
