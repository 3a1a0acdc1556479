#pragma once

// Rows of constant tables that give the bits or the values of an integer their names.

struct sMaskInfo
{
    const char* name;
    unsigned int mask;
};

struct sEnumInfo
{
    const char* name;
    unsigned int value;
};
