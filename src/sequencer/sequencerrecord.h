#pragma once

#include <cstring>

// The packed runtime form of a sequence: no pointers to objects, no texts, one word of bits at the head of a key.
// Keys have no structure of their own, since a compiler would align their values: a key is `stride` bytes of its
// lane's block, its value lies at the offset that the key table names, and the head is all that they share.

// How the value moves from one key to the next one.
enum class eInterpolateType : unsigned char
{
    Constant = 0,
    Linear = 1,
    Hermite = 2,
    Trigger = 3,
};

enum class eMarkerType : unsigned char
{
    Target = 0,
    JumpTarget = 1,
    JumpFrame = 2,
};

// What a key or a marker can hold.
constexpr unsigned int MaximumFrame = 4095;

// One past anything that can be stored: there is no further frame.
constexpr unsigned int NoFrame = 8192;

struct sMarkerRecord
{
    // No marker of the target's name exists.
    static constexpr unsigned int NoTarget = 0xFFFF;

    unsigned int type : 2;
    unsigned int frame : 12;
    unsigned int count : 8;
    unsigned int reset : 1;
    unsigned int : 9;
    unsigned int targetFrame : 12;
    unsigned int targetIndex : 16;
    unsigned int : 4;
};

static_assert(sizeof(sMarkerRecord) == 8);

struct sLaneRecord
{
    // The key number has 16 bits.
    static constexpr unsigned int MaximumKeyNum = 65535;

    unsigned int controlType : 4;
    unsigned int nameHash;
    unsigned char* key; // keyNum * keyStride bytes; null for an empty lane
    unsigned short keyNum;
    unsigned char keyStride;
    unsigned char keyInterpolateNum : 4;
};

struct sTrackRecord
{
    unsigned int objectTypeID;
    sLaneRecord* lane;
    unsigned int laneNum;
};

struct sKeyHead
{
    unsigned short frame : 12;
    unsigned short interpolateType : 4;
};

static_assert(sizeof(sKeyHead) == 2);

inline sKeyHead readKeyHead(const void* key)
{
    sKeyHead head;
    std::memcpy(&head, key, sizeof(head));
    return head;
}

inline void writeKeyHead(void* key, const sKeyHead& head)
{
    std::memcpy(key, &head, sizeof(head));
}

inline eInterpolateType getInterpolateType(const void* key)
{
    return static_cast<eInterpolateType>(readKeyHead(key).interpolateType);
}

// The record of a resource key. A key without resource has all ones for type and hash and an empty path.
struct sResourceKeyRecord
{
    static constexpr unsigned int None = 0xFFFFFFFF;
    static constexpr unsigned int PathSize = 224; // its end included

    unsigned int head;
    unsigned int typeID;
    char path[PathSize];
    unsigned int hash;
};

static_assert(sizeof(sResourceKeyRecord) == 236);
