#include <cstdlib>
#include <string>
#include <thread>

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <libxml/catalog.h>
#include <libxml/parser.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include "tests/document/TestDocuments.h"
#include "tests/support/PlainTree.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/XmlErrors.h"

namespace analytics {
namespace {

using testing::EndsWith;
using testing::StartsWith;

/// Takes one connection within this machine, gives its answer and keeps what it was sent.
class Server {
 public:
  explicit Server(const std::string& answer) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (bind(m_listening, generic, size) != 0 || listen(m_listening, 1) != 0) return;
    getsockname(m_listening, generic, &size);
    m_host = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    m_thread = std::thread([this, answer] { Serve(answer); });
  }
  ~Server() {
    Stop();
    close(m_listening);
  }

  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Host and port; empty where there is no network at all.
  const std::string& Host() const { return m_host; }

  /// Waits for no further connection; what the first one sent, "none" if there was none.
  std::string Received() {
    Stop();
    return m_received;
  }

 private:
  void Stop() {
    shutdown(m_listening, SHUT_RDWR);
    if (m_thread.joinable()) m_thread.join();
  }

  void Serve(const std::string& answer) {
    const int connection = accept(m_listening, nullptr, nullptr);
    if (connection < 0) return;
    m_received.clear();
    send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
    shutdown(connection, SHUT_WR);
    char bytes[1024];
    for (ssize_t count; (count = read(connection, bytes, sizeof bytes)) > 0;) {
      m_received.append(bytes, static_cast<std::size_t>(count));
    }
    close(connection);
  }

  const int m_listening = socket(AF_INET, SOCK_STREAM, 0);
  std::string m_host;
  std::string m_received = "none";
  std::thread m_thread;
};

/// An address, as libxml2 opens it if it was built for that.
class AnAddress : public testing::Test {
 protected:
  AnAddress() { setenv("no_proxy", "*", 1); }

  void SetUp() override {
    if (m_server.Host().empty()) GTEST_SKIP() << "there is no network within this machine";
  }

  Server m_server{"HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\n\r\n<a>text</a>"};
  const bool m_hasHttp = xmlHasFeature(XML_WITH_HTTP) != 0;
  const tests::XmlErrors m_quiet;
};

TEST_F(AnAddress, IsRead) {
  Document document;
  EXPECT_EQ(m_hasHttp, document.ParseFile("http://" + m_server.Host() + "/a.xml"));
  EXPECT_EQ(m_hasHttp ? "text" : "", document.GetSingleValue("/a", nullptr));
  EXPECT_THAT(m_server.Received(), StartsWith(m_hasHttp ? "GET /a.xml" : "none"));
}

TEST_F(AnAddress, IsSentTheDocumentThatIsSaved) {
  ParsedDocument document("<saved/>");
  EXPECT_TRUE(document.SaveToFile("http://" + m_server.Host() + "/a.xml"));
  const std::string received = m_server.Received();
  EXPECT_THAT(received, StartsWith(m_hasHttp ? "PUT /a.xml" : "none"));
  EXPECT_THAT(received, EndsWith(m_hasHttp ? "<saved/>\n" : "none"));
}

TEST_F(AnAddress, OfAFileServerIsConnectedTo) {
  Document document;
  EXPECT_FALSE(document.ParseFile("ftp://" + m_server.Host() + "/a.xml"));
  EXPECT_EQ(xmlHasFeature(XML_WITH_FTP) != 0, m_server.Received() != "none");
}

/// What libxml2 reads or not, as it was built.
class AnUnusualFile : public testing::Test {
 protected:
  void ExpectReadAsLibxml2Does(const std::string& path) {
    const bool isRead = tests::TreePtr(xmlParseFile(path.c_str())) != nullptr;
    Document document;
    EXPECT_EQ(isRead, document.ParseFile(path));
    EXPECT_EQ(isRead ? "text" : "", document.GetSingleValue("/a", nullptr));
  }

  const tests::TemporaryDirectory m_directory;
  const tests::XmlErrors m_quiet;
};

// libxml2 2.9.14 unpacks it, 2.15 leaves that to a flag.
TEST_F(AnUnusualFile, ThatIsCompressedIsUnpackedWhereLibxml2DoesSo) {
  const char packed[] =
      "\x1f\x8b\x08\x00\x00\x00\x00\x00\x00\x03\xb3\x49\xb4\x2b\x49\xad\x28\xb1\xd1\x4f\xb4\x03\x00"
      "\x3b\x28\xfd\xbf\x0b\x00\x00";
  ExpectReadAsLibxml2Does(m_directory.Write("a.xml.gz", std::string(packed, sizeof packed)));
}

TEST_F(AnUnusualFile, ThatACatalogMapsIsFoundThroughIt) {
  const std::string mapped = m_directory.Write("a.xml", "<a>text</a>");
  const std::string catalog = m_directory.Write(
      "catalog.xml",
      "<catalog xmlns='urn:oasis:names:tc:entity:xmlns:xml:catalog'><uri name='none://a' uri='" +
          mapped + "'/><system systemId='none://a' uri='" + mapped + "'/></catalog>");
  ASSERT_EQ(0, xmlLoadCatalog(catalog.c_str()));
  ExpectReadAsLibxml2Does("none://a");
  xmlCatalogCleanup();
}

}  // namespace
}  // namespace analytics
