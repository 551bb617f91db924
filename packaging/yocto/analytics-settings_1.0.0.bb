SUMMARY = "Configuration of a network camera's video-analytics runtime"
DESCRIPTION = "A library that gives a camera's video-analytics runtime its settings, its profiles, \
the free units of the analytics resource and the privacy masks as they change."
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=ef0c68723abe593f3da25bc6e0df86de"

# The tree that this recipe lies in is built.
EXTERNALSRC = "${@os.path.realpath(os.path.join(d.getVar('THISDIR'), '..', '..'))}"
SRC_URI = "file://run-ptest"

inherit cmake externalsrc pkgconfig ptest

DEPENDS = "libxml2"

# Without the host platform the libraries of the camera's are taken from where its recipe installs
# them; name that recipe in DEPENDS.
ANALYTICS_CAMERA_SDK ?= "${STAGING_DIR_HOST}${prefix}"

PACKAGECONFIG ??= "host tools"
PACKAGECONFIG[host] = "-DANALYTICS_INSTALL_HOST=ON,-DANALYTICS_PLATFORM_ROOT=${ANALYTICS_CAMERA_SDK},glib-2.0"
PACKAGECONFIG[tools] = "-DANALYTICS_BUILD_TOOLS=ON,-DANALYTICS_BUILD_TOOLS=OFF,cli11 nlohmann-json"

EXTRA_OECMAKE = "\
    -DANALYTICS_BUILD_EXAMPLES=OFF \
    -DANALYTICS_BUILD_TESTS=OFF \
    -DANALYTICS_VERSIONED_SONAME=ON \
    -DCMAKE_SKIP_INSTALL_RPATH=ON \
"

# What the Debian packages try once they are installed is tried on a device as well.
do_install_ptest() {
    install -m 0755 ${S}/debian/tests/tool ${D}${PTEST_PATH}/
    cp -r ${S}/examples ${D}${PTEST_PATH}/
}

PACKAGES =+ "${PN}-host ${PN}-tools"

FILES:${PN}-host = "${libdir}/libanalytics-core${SOLIBS} ${libdir}/libtavrel*${SOLIBS}"
FILES:${PN}-tools = "\
    ${bindir} \
    ${datadir}/bash-completion \
    ${datadir}/fish \
    ${datadir}/zsh \
"

RDEPENDS:${PN}-ptest += "${PN}-tools"
