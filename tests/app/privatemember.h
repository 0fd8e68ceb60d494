// SPDX-License-Identifier: MIT
// Reaches a private member function for the few rules that no control of the window can show, such
// as an empty log line. An explicit instantiation may name private members.
#pragma once

namespace kit {

/// Tag: a struct in this namespace with a type Pointer and a friend "Pointer memberOf(Tag)".
template<typename Tag, typename Tag::Pointer Member> struct PrivateMember {
    friend typename Tag::Pointer memberOf(Tag) { return Member; }
};

} // namespace kit
