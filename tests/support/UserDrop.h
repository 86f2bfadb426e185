/// @file UserDrop.h
/// A user without rights while it lives, so that file permissions count in tests that the superuser
/// runs; anybody else stays who they are.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

class UserDrop {
public:
    UserDrop()
    {
        constexpr uid_t kNobody = 65534;
        EXPECT_EQ(m_nBefore == 0 ? seteuid(kNobody) : 0, 0);
    }
    ~UserDrop() { EXPECT_EQ(seteuid(m_nBefore), 0); }
    UserDrop(const UserDrop&) = delete;
    UserDrop& operator=(const UserDrop&) = delete;

private:
    uid_t m_nBefore = geteuid();
};
