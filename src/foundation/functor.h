#pragma once

#include <cstddef>

class BlockAllocator;

// The root of bound member functions, which live in a fixed pool of small blocks. Who receives a functor owns it.
class FunctorBase
{
public:
    virtual ~FunctorBase() = default;

    // Null when the pool is used up; `new` then yields null.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* block) noexcept;

    // The pool, made on first use, so that a functor may exist before main.
    static BlockAllocator& getAllocator();
};

// A callback known by its signature only. `A` is void for a call without argument.
template <typename A, typename R>
class FunctorIntermediate : public FunctorBase
{
public:
    virtual R operator()(A argument) = 0;
    virtual FunctorIntermediate* duplicate() const = 0;
};

template <typename R>
class FunctorIntermediate<void, R> : public FunctorBase
{
public:
    virtual R operator()() = 0;
    virtual FunctorIntermediate* duplicate() const = 0;
};

template <typename A, typename R>
class ConstFunctorIntermediate : public FunctorBase
{
public:
    virtual R operator()(A argument) const = 0;
    virtual ConstFunctorIntermediate* duplicate() const = 0;
};

template <typename R>
class ConstFunctorIntermediate<void, R> : public FunctorBase
{
public:
    virtual R operator()() const = 0;
    virtual ConstFunctorIntermediate* duplicate() const = 0;
};

// A member function bound to its object. The object must outlive the functor.
template <typename T, typename A, typename R>
class Functor : public FunctorIntermediate<A, R>
{
public:
    Functor(T* object, R (T::*method)(A)) : mpObject(object), mpMethod(method) {}

    R operator()(A argument) override { return (mpObject->*mpMethod)(argument); }
    Functor* duplicate() const override { return new Functor(mpObject, mpMethod); }

private:
    T* mpObject;
    R (T::*mpMethod)(A);
};

template <typename T, typename R>
class Functor<T, void, R> : public FunctorIntermediate<void, R>
{
public:
    Functor(T* object, R (T::*method)()) : mpObject(object), mpMethod(method) {}

    R operator()() override { return (mpObject->*mpMethod)(); }
    Functor* duplicate() const override { return new Functor(mpObject, mpMethod); }

private:
    T* mpObject;
    R (T::*mpMethod)();
};

template <typename T, typename A, typename R>
class ConstFunctor : public ConstFunctorIntermediate<A, R>
{
public:
    ConstFunctor(const T* object, R (T::*method)(A) const) : mpObject(object), mpMethod(method) {}

    R operator()(A argument) const override { return (mpObject->*mpMethod)(argument); }
    ConstFunctor* duplicate() const override { return new ConstFunctor(mpObject, mpMethod); }

private:
    const T* mpObject;
    R (T::*mpMethod)(A) const;
};

template <typename T, typename R>
class ConstFunctor<T, void, R> : public ConstFunctorIntermediate<void, R>
{
public:
    ConstFunctor(const T* object, R (T::*method)() const) : mpObject(object), mpMethod(method) {}

    R operator()() const override { return (mpObject->*mpMethod)(); }
    ConstFunctor* duplicate() const override { return new ConstFunctor(mpObject, mpMethod); }

private:
    const T* mpObject;
    R (T::*mpMethod)() const;
};
