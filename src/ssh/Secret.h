// A password in memory.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

/// Holds a password in one place that is overwritten when it dies. It is never copied, nor does it
/// grow: what would be moved to a larger place would stay behind in the smaller one.
class Secret
{
public:
    static constexpr std::size_t longest = 1023; // bytes

    Secret() = default;
    explicit Secret(std::string_view text)
    {
        for (const char c : text)
            append(c);
    }
    ~Secret() { wipe(); }
    Secret(const Secret &) = delete;
    Secret &operator=(const Secret &) = delete;
    Secret(Secret &&other) noexcept { *this = std::move(other); }
    Secret &operator=(Secret &&other) noexcept
    {
        if (this != &other) {
            std::memcpy(_bytes, other._bytes, sizeof _bytes);
            _size = other._size;
            other.wipe();
        }
        return *this;
    }

    /// What is beyond the longest is dropped.
    void append(char c)
    {
        if (_size < longest)
            _bytes[_size++] = c;
    }
    void removeLast()
    {
        if (_size > 0)
            _bytes[--_size] = '\0';
    }
    void wipe()
    {
        explicit_bzero(_bytes, sizeof _bytes);
        _size = 0;
    }
    /// Ends with a null byte.
    const char *text() const { return _bytes; }
    std::size_t size() const { return _size; }

private:
    char _bytes[longest + 1] = {};
    std::size_t _size = 0;
};
