# cmake -D SOURCE=... -D HEADER=... -P write-commit.cmake: writes the commit of the source tree into a header, and leaves
# the header alone when it says so already. A source archive made by `git archive` names its commit in archived-commit.txt.
# Without either, the commit is empty.
cmake_minimum_required(VERSION 3.25)
execute_process(
    COMMAND git --no-optional-locks describe --always --exclude=* --abbrev=12 --dirty=+
    WORKING_DIRECTORY ${SOURCE} OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE failed)
if(failed)
    file(STRINGS ${SOURCE}/cmake/archived-commit.txt commit LIMIT_COUNT 1)
    if(NOT commit MATCHES "^[0-9a-f]+$")
        set(commit "")
    endif()
endif()
file(CONFIGURE OUTPUT ${HEADER} CONTENT "#define TARNWICK_COMMIT \"@commit@\"\n" @ONLY)
