/// @file Result.h
/// A value or a run-time error. Results mostly stay inside a module; what the user has to know
/// leaves it as a Message or as a Failure of a run.
///
/// Units:   none.
/// Errors:  the error's text is one of the classic descriptions of RunErrorText.h, or written by
///          the procedure that failed.
/// Tests:   tests/system/ResultTest.cpp
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <utility>

/// A run-time error: only its description, worded to follow a message's prefix.
struct RunError {
    std::string sText;
};

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_value(std::move(value)) {}  // NOLINT(google-explicit-constructor)
    Result(RunError error)
        : m_sText(std::move(error.sText)) {}  // NOLINT(google-explicit-constructor)

    explicit operator bool() const { return m_value.has_value(); }
    /// REQUIRES: the result holds a value.
    [[nodiscard]] T& ValueGet()
    {
        assert(m_value.has_value());
        return *m_value;
    }
    [[nodiscard]] const T& ValueGet() const
    {
        assert(m_value.has_value());
        return *m_value;
    }
    /// The error's description; empty when the result holds a value.
    [[nodiscard]] const std::string& TextGet() const { return m_sText; }
    /// The error, to be passed on. REQUIRES: the result holds an error.
    [[nodiscard]] RunError ErrorGet() const
    {
        assert(!m_value.has_value());
        return RunError{m_sText};
    }

private:
    std::optional<T> m_value;
    std::string m_sText;
};

template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(RunError error) : m_error(std::move(error)) {}  // NOLINT(google-explicit-constructor)

    explicit operator bool() const { return !m_error.has_value(); }
    [[nodiscard]] std::string TextGet() const { return m_error ? m_error->sText : std::string(); }
    [[nodiscard]] RunError ErrorGet() const
    {
        assert(m_error.has_value());
        return *m_error;
    }

private:
    std::optional<RunError> m_error;
};
