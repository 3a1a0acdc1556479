#include "sequencer/sequenceruniquekey.h"

#include "foundation/replacereference.h"
#include "reflection/propertylist.h"
#include "reflection/resourceproperty.h"
#include "resource/resourcebase.h"
#include "sequencer/control.h"
#include "ui/uiresourcecontrol.h"

#include <cstring>

// The records stand first, since the bodies below may see them only once they are specialised, and in one file,
// since only there they have an order.
#define KEY_RECORD(T, name)                                                                                            \
    template <>                                                                                                        \
    UniqueTypeInfo<SequencerUniqueKey<T>> SequencerUniqueKey<T>::mTypeInfo("SequencerUniqueKey<" name ">",             \
                                                                           "SequencerKey")

UniqueTypeInfo<SequencerUniqueKey<void>> SequencerUniqueKey<void>::mTypeInfo("SequencerUniqueKey<void>",
                                                                             "SequencerKey");
KEY_RECORD(bool, "bool");
KEY_RECORD(unsigned char, "u8");
KEY_RECORD(unsigned short, "u16");
KEY_RECORD(unsigned int, "u32");
KEY_RECORD(unsigned long long, "u64");
KEY_RECORD(signed char, "s8");
KEY_RECORD(short, "s16");
KEY_RECORD(int, "s32");
KEY_RECORD(long long, "s64");
KEY_RECORD(float, "f32");
KEY_RECORD(double, "f64");
KEY_RECORD(sFixed, "sFixed");
KEY_RECORD(sPoint, "sPoint");
KEY_RECORD(sSize, "sSize");
KEY_RECORD(sRect, "sRect");
KEY_RECORD(sColor, "sColor");
KEY_RECORD(sColorF, "sColorF");
KEY_RECORD(sTexcoord, "sTexcoord");
KEY_RECORD(sVector, "sVector");
UniqueTypeInfo<SequencerUniqueKey<ResourceBase>>
    SequencerUniqueKey<ResourceBase>::mTypeInfo("SequencerUniqueKey<ResourceBase>", "SequencerKey");

template <typename T>
TypeInfo* SequencerUniqueKey<T>::getStaticTypeInfo()
{
    return &mTypeInfo;
}

template <typename T>
const TypeInfo* SequencerUniqueKey<T>::getTypeInfo() const
{
    return &mTypeInfo;
}

template <typename T>
void* SequencerUniqueKey<T>::setParameter(const void* value)
{
    std::memcpy(&mParameter, value, sizeof(T));
    return &mParameter;
}

template <typename T>
void* SequencerUniqueKey<T>::getParameter()
{
    return &mParameter;
}

template <typename T>
void SequencerUniqueKey<T>::copyParameter(void* value) const
{
    std::memcpy(value, &mParameter, sizeof(T));
}

template <typename T>
unsigned int SequencerUniqueKey<T>::getParameterSize() const
{
    return sizeof(T);
}

template <typename T>
void SequencerUniqueKey<T>::makePropertyList(PropertyList& list)
{
    SequencerKey::makePropertyList(list);
    list.addReference("parameter", mParameter);
}

template <typename T>
void SequencerUniqueKey<T>::makeUIList(List<UIBase>& list)
{
    SequencerKey::makeUIList(list);
    PropertyControl control(new ReferenceProperty<T>(getLabel().c_str(), &mParameter));
    if (UIBase* element = Utils::makeUIFromControl(&control))
        list.addLast(element);
}

template class SequencerUniqueKey<bool>;
template class SequencerUniqueKey<unsigned char>;
template class SequencerUniqueKey<unsigned short>;
template class SequencerUniqueKey<unsigned int>;
template class SequencerUniqueKey<unsigned long long>;
template class SequencerUniqueKey<signed char>;
template class SequencerUniqueKey<short>;
template class SequencerUniqueKey<int>;
template class SequencerUniqueKey<long long>;
template class SequencerUniqueKey<float>;
template class SequencerUniqueKey<double>;
template class SequencerUniqueKey<sFixed>;
template class SequencerUniqueKey<sPoint>;
template class SequencerUniqueKey<sSize>;
template class SequencerUniqueKey<sRect>;
template class SequencerUniqueKey<sColor>;
template class SequencerUniqueKey<sColorF>;
template class SequencerUniqueKey<sTexcoord>;
template class SequencerUniqueKey<sVector>;

TypeInfo* SequencerUniqueKey<void>::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* SequencerUniqueKey<void>::getTypeInfo() const
{
    return &mTypeInfo;
}

TypeInfo* SequencerUniqueKey<ResourceBase>::getStaticTypeInfo()
{
    return &mTypeInfo;
}

const TypeInfo* SequencerUniqueKey<ResourceBase>::getTypeInfo() const
{
    return &mTypeInfo;
}

SequencerUniqueKey<ResourceBase>::SequencerUniqueKey()
{
    setInterpolateType(eInterpolateType::Trigger);
    setTriggerOnly(true);
}

SequencerUniqueKey<ResourceBase>::~SequencerUniqueKey()
{
    setResource(nullptr);
}

void SequencerUniqueKey<ResourceBase>::setResource(ResourceBase* resource)
{
    replaceReference(mpResource, resource);
}

void SequencerUniqueKey<ResourceBase>::makePropertyList(PropertyList& list)
{
    SequencerKey::makePropertyList(list);
    list.add(new ResourceProperty("resource", &mpResource));
    list.addReference("resource_typeid", mResourceTypeID);
}

// What a document names as the type may be anything, also a class of which there can be no instance.
void SequencerUniqueKey<ResourceBase>::makeUIList(List<UIBase>& list)
{
    SequencerKey::makeUIList(list);
    const TypeInfo* type = TypeInfo::find(mResourceTypeID);
    if (type && type->isDerivedFrom(ResourceBase::getStaticTypeInfo()) &&
        type->getAttribute() == static_cast<unsigned int>(eTypeAttribute::None))
        list.addLast(
            new UIResourceControl(new ResourceProperty("resource", &mpResource), type, false, UIControl::WholeValue));
}
