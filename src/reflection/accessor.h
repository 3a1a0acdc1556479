#pragma once

// A value reached through operations of its owner.
template <typename T>
class AccessorBase
{
public:
    virtual ~AccessorBase() = default;

    virtual T get(unsigned int index) const = 0;
    virtual void set(T value, unsigned int index) = 0;
    virtual unsigned int getIndex() const = 0;
    virtual void setIndex(unsigned int index) = 0;
};

// A getter and a setter of `X`. They know one value, so every index means that one. The object must outlive the
// accessor.
template <typename X, typename T>
class Accessor : public AccessorBase<T>
{
public:
    using Getter = T (X::*)() const;
    using Setter = void (X::*)(T);

    Accessor(X* object, Getter getter, Setter setter) : mpGetter(getter), mpSetter(setter), mpObject(object) {}

    T get(unsigned int) const override { return (mpObject->*mpGetter)(); }
    void set(T value, unsigned int) override { (mpObject->*mpSetter)(value); }
    unsigned int getIndex() const override { return 0; }
    void setIndex(unsigned int) override {}

private:
    Getter mpGetter;
    Setter mpSetter;
    X* mpObject;
};
