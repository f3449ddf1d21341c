// Automation variants: conversion with a radix, and an order.
//
//     VARIANT address;                                    // VT_BSTR "1FFh"
//     VariantChangeType(1033, VT_I4, address, 16);        // VT_I4 511
//     VariantChangeType(1033, VT_BSTR, address, 16);      // VT_BSTR "1FF"
//
// Nothing throws.

#ifndef VANTOR_VARIANT_H
#define VANTOR_VARIANT_H

#include <vantor/Platform.h>

#include <oleauto.h>

namespace vantor
{
// Converts v in place to the type vt, by the rules of the language lcid; true becomes the number 1. With a base (2 to
// 36; 0 for none) between strings and integers of 8 to 32 bits:
// - To an integer: the whole string must be a number; with base 16 an "h" may follow. The empty string is 0. It is read
//   into 32 bits, where a too large one ends at the limit, and handed on as a VT_I4: the platform decides what fits the
//   target, and an unsigned number above 0x7FFFFFFF reaches it as a negative one. After a failure v is the number that
//   was read, in the target's type if it fits there, else as a VT_I4.
// - From an integer: the digits, in upper case, without prefix or suffix. A negative number with a base other than 10
//   is written as 32 bits.
// False if the conversion failed; v is then what it was, except as said above, and that true is stored as 1.
VANTOR_API bool VariantChangeType(unsigned long lcid, unsigned short vt, VARIANT& v, int base) noexcept;

// Negative, 0 or positive; b is first converted to the type of a, by US English rules. Strings compare by wcscmp, whose
// result it is; for other types it is -1, 0 or 1. Everything but strings, numbers up to 32 bits, floating-point numbers
// and truth values is equal, dates and 64-bit numbers included; so is what cannot be converted, and a NaN.
VANTOR_API int VariantCompare(const VARIANT& a, const VARIANT& b) noexcept;
}   // namespace vantor

#endif
