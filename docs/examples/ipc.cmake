# SPDX-License-Identifier: GPL-2.0-or-later
# Runs the example and its partner beside each other.
execute_process(COMMAND ${example} ${directory}
  COMMAND ${partner} ${directory} "goto 3500000 5800000" --poll 100 COMMAND_ERROR_IS_FATAL ANY)
