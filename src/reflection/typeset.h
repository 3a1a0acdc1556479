#pragma once

// Types of properties, by their numbers, as a set of bits.

constexpr unsigned int typeRange(unsigned int first, unsigned int last)
{
    return (2u << last) - (1u << first);
}

constexpr bool containsType(unsigned int types, unsigned int type)
{
    return type < 32 && (types >> type & 1);
}
