// The determinant of a matrix without one row and one column.

#ifndef VANTOR_SRC_MINOR_H
#define VANTOR_SRC_MINOR_H

#include <vantor/Matrix.h>

namespace vantor
{
// Exported for its tests; invert gives it no matrix that it rejects.
VANTOR_API double minor(const matrix& a, unsigned int i, unsigned int j);
}   // namespace vantor

#endif
