#pragma once

namespace bench {

// What the prefixes "tt" and "ka" of a profile stand for.
constexpr char kOnvifUri[] = "http://www.onvif.org/ver10/schema";
constexpr char kVendorUri[] = "urn:kestal-com:schema:onvif:analytics:1";

}  // namespace bench
