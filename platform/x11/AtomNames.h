// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/Connection.h"

#include <QByteArray>

#include <map>
#include <span>
#include <vector>

namespace zamber::x11 {

/// The names of the types of selections, by which they are chosen. Names are remembered; those that are not known yet
/// cost one round trip to the server, however many they are.
class AtomNames final {
public:
    explicit AtomNames(Connection& connection);

    /// Each atom's name, an empty one for those that do not exist.
    std::vector<QByteArray> namesOf(std::span<const xcb_atom_t> atoms);
    QByteArray nameOf(xcb_atom_t atom);

    std::vector<xcb_atom_t> atomsOf(std::span<const QByteArray> names);
    xcb_atom_t atomOf(const QByteArray& name);

private:
    /// Some programs make names up for each copy, so all names are forgotten when they become more than this.
    static constexpr std::size_t MOST_KNOWN = 4096;

    void note(xcb_atom_t atom, const QByteArray& name);

    Connection& m_connection;
    std::map<xcb_atom_t, QByteArray> m_names;
    std::map<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace zamber::x11
