#pragma once

#include "foundation/spoint.h"

// A 3 by 3 affine matrix, row by row; a point is a column (x, y, 1).
class sMatrix
{
public:
    static const sMatrix Identity;

    constexpr sMatrix() = default;
    constexpr sMatrix(sFixed m00, sFixed m01, sFixed m02, sFixed m10, sFixed m11, sFixed m12, sFixed m20, sFixed m21,
                      sFixed m22)
        : m{{m00, m01, m02}, {m10, m11, m12}, {m20, m21, m22}}
    {
    }

    // `angle` in 1024ths of a turn; its fraction is ignored.
    sMatrix(sFixed angle, const sVector& translation);

    void setOrientation(sFixed angle);
    void setTranslation(const sVector& translation);

    sMatrix operator*(const sMatrix& other) const;
    sVector transform(const sVector& point) const;

    constexpr bool operator==(const sMatrix&) const = default;

    sFixed m[3][3];
};

inline constexpr sMatrix sMatrix::Identity{sFixed::One,  sFixed::Zero, sFixed::Zero, sFixed::Zero, sFixed::One,
                                           sFixed::Zero, sFixed::Zero, sFixed::Zero, sFixed::One};
