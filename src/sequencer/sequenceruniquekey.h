#pragma once

#include "reflection/reflect.h"
#include "sequencer/sequencerkey.h"

class ResourceBase;

// The key of a value of type T, which starts at zero. The members of the family are the plain values of
// reflection/valuetraits.h, void and ResourceBase; each is named in documents.
template <typename T>
class SequencerUniqueKey : public SequencerKey
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    void* setParameter(const void* value) override;
    void* getParameter() override;
    void copyParameter(void* value) const override;
    unsigned int getParameterSize() const override;

    void makePropertyList(PropertyList& list) override;
    void makeUIList(List<UIBase>& list) override;

private:
    static UniqueTypeInfo<SequencerUniqueKey> mTypeInfo;

    T mParameter{};
};

// A key without a value. No lane chooses it; documents may name it.
template <>
class SequencerUniqueKey<void> : public SequencerKey
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    void* setParameter(const void*) override { return nullptr; }
    void* getParameter() override { return nullptr; }
    void copyParameter(void*) const override {}
    unsigned int getParameterSize() const override { return 0; }

private:
    static UniqueTypeInfo<SequencerUniqueKey> mTypeInfo;
};

// A key that refers to a resource, of which it holds one reference.
template <>
class SequencerUniqueKey<ResourceBase> : public SequencerKey
{
public:
    static TypeInfo* getStaticTypeInfo();
    const TypeInfo* getTypeInfo() const override;

    SequencerUniqueKey();
    ~SequencerUniqueKey() override;

    void* setParameter(const void*) override { return nullptr; }
    void* getParameter() override { return nullptr; }
    void copyParameter(void*) const override {}
    unsigned int getParameterSize() const override { return 0; }

    void setResource(ResourceBase* resource);
    ResourceBase* getResource() const { return mpResource; }

    // The class that may be chosen for it; all ones for none.
    void setResourceTypeID(unsigned int id) { mResourceTypeID = id; }
    unsigned int getResourceTypeID() const { return mResourceTypeID; }

    void makePropertyList(PropertyList& list) override;
    void makeUIList(List<UIBase>& list) override;

private:
    static UniqueTypeInfo<SequencerUniqueKey> mTypeInfo;

    ResourceBase* mpResource = nullptr;
    unsigned int mResourceTypeID = 0xFFFFFFFF;
};
