# SPDX-License-Identifier: MIT
# Everything comes from the distribution; docs/architecture.md says why each is here.
find_package(PkgConfig REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus)
find_package(nlohmann_json 3.11 REQUIRED)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-xkb xcb-res)
pkg_check_modules(XKBCOMMON REQUIRED IMPORTED_TARGET xkbcommon xkbcommon-x11)
if(DWELLKEY_TESTS)
    find_package(GTest REQUIRED)
    pkg_check_modules(XTEST REQUIRED IMPORTED_TARGET xcb xcb-xtest xcb-xkb)
endif()
if(DWELLKEY_BENCH)
    find_package(benchmark REQUIRED)
endif()
