#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <analytics/Export.h>

namespace analytics {

/// The analytics runtime's own settings, one set for the process.
///
/// The settings come from an XML file without namespaces. Its path is the first word to which a
/// POSIX shell expands the environment variable `ANALYTICS_INI` (tilde, variables, quotes and
/// command substitution), or the variable's raw text where that expansion fails, or
/// "/usr/local/kestal/analytics/conf/analytics.ini" where the variable is not set or expands to no
/// word. The variable can run commands: whoever sets it must be trusted.
///
/// The first operation called loads that file, whatever comes of it; later only `LoadSettings`
/// loads. Until a file has been parsed every setting has its built-in value. A file that parses
/// replaces all settings: a number it lacks falls back to its built-in value, a text it lacks
/// becomes empty, so that no setting of one file is ever mixed with those of another. Of an element
/// that occurs more than once the first counts.
///
/// Ownership: all results are copies.
///
/// Errors: a file that is missing or not well-formed changes no stored setting and is reported
/// through `analytics::Trace`; what is absent gives an empty text, an empty list or the caller's
/// default. Only the errors of the string operations (`std::bad_alloc`, `std::length_error`) get
/// out.
///
/// Threads: no lock is taken. The first call and every `LoadSettings` are made while no other
/// thread uses the settings; free queries and substitution are for one thread at a time.
class ANALYTICS_API Settings {
 public:
  Settings();
  ~Settings();

  /// Loads or reloads the settings. As the first call of all it loads twice: first the file of
  /// `ANALYTICS_INI`, then the one asked for.
  ///
  /// @param path  the file; empty means the file that `ANALYTICS_INI` now stands for
  /// @return whether the file was parsed. If not, the stored settings below keep their values while
  ///         the free queries answer as for an empty file.
  static bool LoadSettings(const std::string& path);

  /// Amount of analytics resource available, in units; `//maxResource`, built-in 100000.
  static std::int64_t MaxResource();

  /// Paths of the named pipes that carry H.264 user data; the texts of `//userdataPipe` that are
  /// not empty. "/var/run/primary.h264UserData.pipe" alone for a file without any; none at all as
  /// long as no file has been parsed.
  static std::vector<std::string> UserDataPipes();

  /// Directory of the analytics plug-ins; `//pluginRepository`, built-in
  /// "/usr/local/kestal/analytics/plugins/". Ends in "/" unless it is empty.
  static std::string PluginRepository();

  /// Path of the quad (four-view) output file; `//quadOutputFile`, built-in
  /// "/usr/local/kestal/analytics/quad-output.yuv".
  static std::string QuadOutputFile();

  /// Element tag of a profile; `//tags/profile`, built-in "analytics-profile".
  static std::string ProfileTag();

  /// Element tag of a media source; `//tags/mediaSource`, built-in "MediaSource".
  static std::string MediaSourceTag();

  /// Element tag of the engine list; `//tags/engines`, built-in "engines".
  static std::string EnginesTag();

  /// Element tag of one engine; `//tags/engine`, built-in "engine".
  static std::string EngineTag();

  /// Element tag of the rule list; `//tags/rules`, built-in "rules".
  static std::string RulesTag();

  /// Element tag of one rule; `//tags/rule`, built-in "rule".
  static std::string RuleTag();

  /// Element tag of the event sink list; `//tags/eventSinks`, built-in "eventSinks".
  static std::string EventSinksTag();

  /// Element tag of one event sink; `//tags/eventSink`, built-in "eventSink".
  static std::string EventSinkTag();

  /// Element tag of a camera preset; `//tags/cameraPreset`, built-in "cameraPreset".
  static std::string CameraPresetTag();

  /// URI of the vendor's namespace; `//namespaces/kestal/url`, built-in
  /// "urn:kestal-com:schema:onvif:analytics:1".
  static std::string KestalNs();

  /// Prefix that queries use for the vendor's namespace; `//namespaces/kestal/prefix`, built-in
  /// "ka".
  static std::string KestalPrefix();

  /// URI of the ONVIF schema namespace; `//namespaces/onvif/url`, built-in
  /// "http://www.onvif.org/ver10/schema".
  static std::string OnvifNs();

  /// Prefix that queries use for the ONVIF namespace; `//namespaces/onvif/prefix`, built-in "tt".
  static std::string OnvifPrefix();

  /// Path of the profile that lists the default modules; `//profile4DefaultModules`, built-in
  /// "/Users/Projects/analytics-runtime/Profile4DefaultModules.xml".
  static std::string Profile4DefaultModules();

  /// First element or attribute of the settings file that `xpath` selects, as an integer.
  ///
  /// The three free queries ask the file of the last `LoadSettings`, not the stored settings: what
  /// the file lacks has no built-in value here, and after a failed load nothing is found. The
  /// expression ends at its first NUL; namespace prefixes cannot be used.
  ///
  /// @param xpath         XPath 1.0, from the root element
  /// @param defaultValue  the answer if nothing is found or the text is empty or blank; conversion
  ///                      as `DocumentNode` describes
  static int GetValue(const std::string& xpath, int defaultValue);

  /// Text of the first element or attribute that `xpath` selects; empty if nothing is found.
  static std::string GetValue(const std::string& xpath);

  /// Texts of all elements or attributes that `xpath` selects, in document order, empty ones left
  /// out.
  static std::vector<std::string> GetValues(const std::string& xpath);

  /// Replaces each reference `${name}` by the variable's value.
  ///
  /// A variable is the first `<variable name="" value=""/>` of that name in a `variables` element
  /// of the settings file, the name compared exactly. References are replaced leftmost first and
  /// the result is searched again, so values may hold references. A name runs to the first "}". An
  /// undefined variable gives the empty text, as does a name with a double quote, unless it happens
  /// to complete the query that it is put into unescaped. "${}" ends the
  /// substitution, as does a "${" without "}": what follows stays as it is.
  ///
  /// A variable whose value leads back to itself never ends. Settings files are written with the
  /// product; check them before they are shipped.
  ///
  /// A text without a reference touches no settings and loads nothing.
  static std::string SubstituteVariables(const std::string& text);
};

}  // namespace analytics
