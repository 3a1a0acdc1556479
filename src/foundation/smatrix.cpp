#include "foundation/smatrix.h"

#include "foundation/trigonometricalfunction.h"

sMatrix::sMatrix(sFixed angle, const sVector& translation) : sMatrix(Identity)
{
    setOrientation(angle);
    setTranslation(translation);
}

void sMatrix::setOrientation(sFixed angle)
{
    const int index = static_cast<int>(angle);
    const sFixed sine = TrigonometricalFunction::getSin(index);
    const sFixed cosine = TrigonometricalFunction::getCos(index);
    m[0][0] = cosine;
    m[0][1] = -sine;
    m[1][0] = sine;
    m[1][1] = cosine;
}

void sMatrix::setTranslation(const sVector& translation)
{
    m[0][2] = translation.x;
    m[1][2] = translation.y;
}

sMatrix sMatrix::operator*(const sMatrix& other) const
{
    sMatrix product;
    for (int row = 0; row < 3; ++row)
    {
        for (int column = 0; column < 3; ++column)
        {
            product.m[row][column] =
                m[row][0] * other.m[0][column] + m[row][1] * other.m[1][column] + m[row][2] * other.m[2][column];
        }
    }
    return product;
}

sVector sMatrix::transform(const sVector& point) const
{
    return {m[0][0] * point.x + m[0][1] * point.y + m[0][2], m[1][0] * point.x + m[1][1] * point.y + m[1][2]};
}
