// SPDX-FileCopyrightText: 2026 The Zamber project
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace zamber::links {

/// The longest name that the domain name system has.
inline constexpr qsizetype LONGEST_DOMAIN_NAME = 253;
/// The longest piece between its dots.
inline constexpr qsizetype LONGEST_DOMAIN_LABEL = 63;

/// Whether the name is a link without a scheme: it begins with "www.", or is under a top-level domain that is linked
/// and is neither a number, nor a file's name, nor the end of a sentence that runs into the next one ("there.It").
bool isLinkWithoutScheme(QStringView name);
bool beginsWithWww(QStringView name);

/// Whether the name may stand behind the @ of a mail address, under whatever top-level domain.
bool isMailDomain(QStringView name);

} // namespace zamber::links
