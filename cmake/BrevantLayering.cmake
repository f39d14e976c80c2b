# The layering check is part of every build: a forbidden include fails it.
add_custom_target(layering ALL
  COMMAND "${PROJECT_SOURCE_DIR}/scripts/check_layering.sh"
  WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}"
  COMMENT "Checking which folder includes which"
  VERBATIM)
