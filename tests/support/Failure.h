// The rows of the failure table. A row is written out where it is provoked, by hand:
//
//     EXPECT_FAILURE(124, L".\\File", L"DeleteFile", ERROR_FILE_NOT_FOUND, CFile::Remove(missing.c_str()));
//
// which expects a CWinException with exactly these contents. tools/failures.py collects these rows and compares them
// with the throws in src/.

#ifndef VANTOR_TEST_FAILURE_H
#define VANTOR_TEST_FAILURE_H

#include <vantor/Exceptions.h>

#include <gtest/gtest.h>

#include <functional>

namespace support
{
// Success, or what differs in words.
::testing::AssertionResult FailsWith(unsigned int line, const wchar_t* fileName, const wchar_t* function,
                                     unsigned long error, const std::function<void()>& action);
}   // namespace support

#define EXPECT_FAILURE(line, fileName, function, error, ...)                                                           \
    EXPECT_TRUE(::support::FailsWith(line, fileName, function, error, [&] { __VA_ARGS__; }))

#endif
