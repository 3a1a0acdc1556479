#include "reflection/property.h"

#include "foundation/utils.h"
#include "io/xmlreader.h"
#include "io/xmlwriter.h"
#include "reflection/valuetext.h"

namespace
{
template <typename Part>
void parseInto(Part& part, const char* text)
{
    part = parseValue<Part>(text);
}
}

PropertyBase::PropertyBase(unsigned int type, const char* name, unsigned int count)
    : mType(type), mCount(count), mpName(name)
{
}

const char* PropertyBase::getTypeName() const
{
    return "undefined";
}

void PropertyBase::writeUniqueAttributes(XmlWriter*)
{
}

void PropertyBase::readUniqueAttributes(XmlReader*)
{
}

unsigned int PropertyBase::getIndex() const
{
    return mIndex;
}

void PropertyBase::setIndex(unsigned int index)
{
    if (mCount == 0)
        return;
    if (index >= mCount)
        dev_assert("Invalid index.", __FILE__, __LINE__);
    mIndex = index;
}

const char* PropertyBase::getString(char*, unsigned int) const
{
    return nullptr;
}

void PropertyBase::setString(const char*)
{
}

unsigned long long PropertyBase::getNumeric(unsigned int) const
{
    return 0;
}

void PropertyBase::setNumeric(unsigned long long, unsigned int)
{
}

unsigned int PropertyBase::getNameHash() const
{
    return Utils::hash(mpName);
}

void PropertyBase::release()
{
    if (--mReference == 0)
        delete this;
}

void PropertyBase::writeCommonAttributes(XmlWriter* writer)
{
    char buffer[ValueTextSize];
    writer->addAttribute("type", getTypeName());
    writer->addAttribute("count", formatValue(buffer, mCount));
    writer->addAttribute("index", formatValue(buffer, getIndex()));
}

void PropertyBase::serialize(XmlWriter* writer)
{
    writeCommonAttributes(writer);

    const unsigned int index = getIndex();
    if (mCount < 2)
    {
        setIndex(0);
        writeUniqueAttributes(writer);
    }
    else
    {
        serializeElements(writer);
    }
    setIndex(index);
}

void PropertyBase::serializeElements(XmlWriter* writer)
{
    char buffer[ValueTextSize];
    for (unsigned int i = 0; i < mCount; ++i)
    {
        setIndex(i);
        writer->openTag(formatElementName(buffer, i));
        writer->addAttribute("index", formatValue(buffer, i));
        writeUniqueAttributes(writer);
        writer->closeTag();
    }
}

void PropertyBase::deserialize(XmlReader* reader)
{
    if (!AutoString::isEqual(reader->getAttributeText("type"), getTypeName()))
    {
        DEV_TRACE("%s type missmatch.\n", mpName);
        return;
    }

    const char* count = reader->getAttributeText("count");
    if (!count || parseValue<unsigned int>(count) != mCount)
    {
        DEV_TRACE("%s counts missmatch.\n", mpName);
        return;
    }

    if (mCount > 1)
        deserializeElements(reader);
    else
        readUniqueAttributes(reader);
}

void PropertyBase::deserializeElements(XmlReader* reader)
{
    const unsigned int index = getIndex();
    char buffer[ValueTextSize];
    for (unsigned int i = 0; i < mCount; ++i)
    {
        if (!reader->openTag(formatElementName(buffer, i)))
        {
            // On purpose: this line has no end.
            DEV_TRACE("%s array index(%d) not found.", mpName, static_cast<int>(i));
            continue;
        }
        setIndex(i);
        readUniqueAttributes(reader);
        reader->closeTag();
    }
    setIndex(index);
}

template <typename T>
const char* PropertyIntermediate<T>::getTypeName() const
{
    return ValueTraits<T>::name;
}

template <typename T>
void PropertyIntermediate<T>::writeUniqueAttributes(XmlWriter* writer)
{
    char buffer[ValueTextSize];
    if constexpr (CompositeValue<T>)
    {
        const T value = this->get(this->CurrentElement);
        for (const auto& component : ValueTraits<T>::components)
            writer->addAttribute(component.name, formatValue(buffer, value.*component.source));
    }
    else
    {
        writer->addAttribute("value", getString(buffer, this->CurrentElement));
    }
}

// What the tag does not say stays as it is.
template <typename T>
void PropertyIntermediate<T>::readUniqueAttributes(XmlReader* reader)
{
    if constexpr (CompositeValue<T>)
    {
        T value = this->get(this->CurrentElement);
        for (const auto& component : ValueTraits<T>::components)
        {
            if (const char* text = reader->getAttributeText(component.name))
                parseInto(value.*component.target, text);
        }
        this->set(value, this->CurrentElement);
    }
    else if constexpr (std::is_same_v<T, AutoString>)
    {
        if (const AutoString text = reader->getAttribute("value"))
            this->set(text, this->CurrentElement);
    }
    else if (const char* text = reader->getAttributeText("value"))
    {
        setString(text);
    }
}

template <typename T>
const char* PropertyIntermediate<T>::getString([[maybe_unused]] char* buffer, [[maybe_unused]] unsigned int index) const
{
    if constexpr (CompositeValue<T>)
        return nullptr;
    else if constexpr (std::is_same_v<T, AutoString>)
        return this->get(index).c_str();
    else
        return formatValue(buffer, this->get(index));
}

template <typename T>
void PropertyIntermediate<T>::setString([[maybe_unused]] const char* text)
{
    if constexpr (std::is_same_v<T, AutoString>)
        this->set(AutoString(text), this->CurrentElement);
    else if constexpr (!CompositeValue<T>)
        this->set(parseValue<T>(text), this->CurrentElement);
}

template <typename T>
unsigned long long PropertyIntermediate<T>::getNumeric([[maybe_unused]] unsigned int index) const
{
    if constexpr (std::is_same_v<T, bool>)
        return this->get(index) ? ~0ull : 0;
    else if constexpr (IntegerValue<T>)
        return static_cast<unsigned long long>(this->get(index));
    else
        return 0;
}

template <typename T>
void PropertyIntermediate<T>::setNumeric([[maybe_unused]] unsigned long long value, [[maybe_unused]] unsigned int index)
{
    if constexpr (std::is_integral_v<T>)
        this->set(static_cast<T>(value), index);
}

template class PropertyIntermediate<bool>;
template class PropertyIntermediate<signed char>;
template class PropertyIntermediate<short>;
template class PropertyIntermediate<int>;
template class PropertyIntermediate<long long>;
template class PropertyIntermediate<unsigned char>;
template class PropertyIntermediate<unsigned short>;
template class PropertyIntermediate<unsigned int>;
template class PropertyIntermediate<unsigned long long>;
template class PropertyIntermediate<float>;
template class PropertyIntermediate<double>;
template class PropertyIntermediate<sSize>;
template class PropertyIntermediate<sPoint>;
template class PropertyIntermediate<sRect>;
template class PropertyIntermediate<sColor>;
template class PropertyIntermediate<sColorF>;
template class PropertyIntermediate<sTexcoord>;
template class PropertyIntermediate<sFixed>;
template class PropertyIntermediate<sVector>;
template class PropertyIntermediate<AutoString>;
