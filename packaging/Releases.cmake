# kzq_releases(VARIABLE FILE): the versions of CHANGELOG.md as AppStream has them. A version is "## 1.2.3, 2026-11-22",
# and a change one line, "- What is new.".
function(kzq_releases variable file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} text)
    string(FIND "${text}" "\n## " start)
    string(SUBSTRING "${text}" ${start} -1 text)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REGEX REPLACE "`" "" text "${text}")
    string(REGEX REPLACE "\n- ([^\n]*)" "\n          <li>\\1</li>" text "${text}")
    set(end "        </ul>\n      </description>\n    </release>\n")
    string(REGEX REPLACE "\n+## ([^,\n]+), ([0-9-]+)\n+"
        "\n${end}    <release version=\"\\1\" date=\"\\2\">\n      <description>\n        <ul>\n" text "${text}")
    string(LENGTH "\n${end}" before)
    string(SUBSTRING "${text}" ${before} -1 text)
    string(STRIP "${text}" text)
    set(${variable} "    ${text}\n${end}" PARENT_SCOPE)
endfunction()
