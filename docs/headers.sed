# SPDX-License-Identifier: GPL-2.0-or-later
# What the website reads of a header: what stands at its head says what it is for, and
# specialisations in std are left out, which do not parse.
1s|.*|/// @file|
2,5s|^// |/// |
/^template <>$/{
  N
  /struct std::/!b
  :more
  N
  /};$/!b more
  d
}
