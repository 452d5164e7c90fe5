#include "text/detection/SecretCorpus.h"

#include <QRegularExpression>
#include <map>

namespace kestrio {

namespace {

constexpr double characterWidth = 8;
constexpr double lineHeight = 16;
constexpr QSize corpusPicture(2000, 20000);

const char* const templates[] = {
    "2025-01-15 10:32:07,114 INFO  auth: login of {email} from {ipv4} ok",
    "2025-01-15T10:32:08Z WARN retry 3/5 for {email}, next at {time}",
    "Jan 15 10:32:09 web-01 sshd[{port}]: Accepted publickey for root from {ipv4} port {port} ssh2",
    "{ipv4} - - [15/Jan/2025:10:32:10 +0000] \"GET /v2/items?id={id} HTTP/1.1\" 200 {number}",
    "inet {ipv4}/24 brd 255.255.255.0 scope global dynamic eth0 {version}",
    "inet6 {ipv6}/64 scope link valid_lft forever preferred_lft forever",
    "PING6 {ipv6} 56 data bytes, time {number} ms",
    "nameserver {ipv6}",
    "listen [{ipv6}]:443 ssl;",
    "export STRIPE_KEY={key}",
    "const stripe = new Stripe(\"{key}\", {{ apiVersion: '{date}' }});",
    "Authorization: Bearer {key}",
    "api-key: {key}   # rotate before {date}",
    "{{\"user\": \"{email}\", \"token\": \"{key}\", \"ttl\": 3600}}",
    "DATABASE_URL=postgres://app@db:5432/app  API={key}",
    "curl -u {key}: https://api.example.com/v1/charges",
    "From: Ann Lee <{email}>",
    "To: {email}, {email}",
    "Reply-To: {email}   Date: {date}",
    "Call me at {phone} or write to {email}.",
    "Phone: {phone}   Fax: {phone}",
    "Tel. {phone}",
    "Mobile {phone}",
    "{name}   {phone}   {email}   active   {date}",
    "{name}  {card}  {price}  paid",
    "Card number: {card}  exp 12/27  CVV 123",
    "VISA {card}",
    "charge {card} amount={price} order {order}",
    "customer {id}  {email}  {phone}",
    "Contact {email}. It answers within a day.",
    "| {order} | {name} | {card} | {price} |",
    "mailto:{email}?subject=Hello",
    "git clone git@{host}:team/repo.git  # was {sha}",
    "server {{ listen 80; proxy_pass http://{ipv4}:8080/; }}",
    "docker run -p {port}:80 registry.example.com/app:{version}",
    // Nothing private below.
    "commit {sha} (HEAD -> main, tag: v{version})",
    "std::vector<std::string> names; std::size_t n = ns::detail::count<T>();",
    "use std::collections::HashMap; let d = Duration::from_secs(60);",
    "a::before {{ content: ''; color: {css}; margin: 0 auto 12px; }}",
    "body {{ color: {css}; background: rgba(255, 255, 255, 0.85); }}",
    "icon@2x.png icon@3x.png logo@1.5x.jpg sprite@2x.webp",
    "import app from './app.module'; @Component({{ selector: 'app-root' }})",
    "npm i react@18.2.0 lodash@4.17.21 typescript@5.3.3",
    "Version {version}  build {number}  released {date}",
    "Qt 6.4.2, GCC 12.2.0, cmake 3.25.1, kernel 6.1.0-18-amd64",
    "Mozilla/5.0 (X11; Linux x86_64) AppleWebKit/537.36 Chrome/120.0.0.0 Safari/537.36",
    "Order #{order}  placed {date}  total {price}",
    "Invoice {order} of {date}: {price} due",
    "Ticket {id} took {number} s, {number} rows, {number} bytes",
    "request_id={uuid} trace={sha} span={hex}",
    "{uuid}  {uuid}",
    "sha256:{sha}{hex}  layer {number}",
    "{date} {time}  {number}  {number}  {percent}",
    "Temperature 21.5 at {coord}, wind 3.4",
    "lat={coord} zoom=14 tiles=1024x768",
    "SKU {order}  qty 12  unit {price}  sum {price}",
    "timestamp: {unixms}  seed: {number}",
    "epoch {unix} -> {date} {time}",
    "tcp 0 0 0.0.0.0:{port} LISTEN {number}/nginx",
    "id {id} parent {id} status 200 time {number}ms",
    "MAC 00:1a:2b:3c:4d:5e  mtu 1500 qlen 1000",
    "loadUserProfileInformation key_exchangealgorithmselectionlist "
    "token_expirationTimestampInSeconds",
    "for i in range(0, 1000): total += values[i::2] - values[::-1]",
    "Section 3.2.1.4 of the manual, page 112, ISBN 978-3-16-148410-0",
    "1,234,567.89  2 345 678,90  12 345 678  {price}",
    "06:00 07:30 09:15 12:45 18:05 23:59  Mon-Fri",
    "GET /api/v1/users/{number}/items/{number} 200 12.5 ms",
    "Aspect 16:9, 1920x1080@60, 4.2 GB of 15.6 GB, 87 %",
};

class Generator {
  public:
    explicit Generator(unsigned seed) : random_(seed) {}

    CorpusLine line(int index) {
        const QString pattern = QString::fromUtf8(templates[size_t(index) % std::size(templates)]);
        static const QRegularExpression place(QStringLiteral(R"(\{\{|\}\}|\{(\w+)\})"));
        CorpusLine result;
        int last = 0;
        auto found = place.globalMatch(pattern);
        while (found.hasNext()) {
            const auto match = found.next();
            result.text += pattern.mid(last, match.capturedStart() - last);
            last = int(match.capturedEnd());
            append(result, match.captured(1), match.captured());
        }
        result.text += pattern.mid(last);
        return result;
    }

  private:
    int below(int end) { return int(random_() % unsigned(end)); }
    QString pick(std::initializer_list<const char*> choices) {
        return QString::fromUtf8(choices.begin()[below(int(choices.size()))]);
    }
    QString units(int count, const char* alphabet) {
        const QString all = QString::fromLatin1(alphabet);
        QString result;
        for (int i = 0; i < count; ++i)
            result += all[below(int(all.size()))];
        return result;
    }
    QString digits(int count) { return units(count, "0123456789"); }
    QString number(int from, int to) { return QString::number(from + below(to - from)); }

    void append(CorpusLine& line, const QString& name, const QString& literal) {
        static const std::map<QString, SensitiveInfoType> secrets = {
            {QStringLiteral("email"), SensitiveInfoType::email},
            {QStringLiteral("card"), SensitiveInfoType::creditCard},
            {QStringLiteral("ipv4"), SensitiveInfoType::ipv4},
            {QStringLiteral("ipv6"), SensitiveInfoType::ipv6},
            {QStringLiteral("key"), SensitiveInfoType::apiKey},
            {QStringLiteral("phone"), SensitiveInfoType::phoneNumber}};
        if (name.isEmpty()) {
            line.text += literal.left(1);
            return;
        }
        const QString value = valueOf(name);
        if (const auto type = secrets.find(name); type != secrets.end())
            line.secrets.push_back({type->second, {int(line.text.size()), int(value.size())}});
        if (name == u"host") {  // with the user before it, it looks like an address of mail
            line.secrets.push_back(
                {SensitiveInfoType::email, {int(line.text.size()) - 4, int(value.size()) + 4}});
        }
        line.text += value;
    }

    QString valueOf(const QString& name) {
        if (name == u"email") return email();
        if (name == u"card") return card();
        if (name == u"ipv4") return ipv4();
        if (name == u"ipv6") return ipv6();
        if (name == u"key") return key();
        if (name == u"phone") return phone();
        if (name == u"name") return pick({"Ann Lee", "Jörg Maier", "K. Tanaka", "María Ortiz"});
        if (name == u"host") return pick({"github.com", "gitlab.example.com", "code.corp"});
        if (name == u"date")
            return pick({"2025-", "2024-", "2019-"}) + pick({"01-15", "11-03", "07-30"});
        if (name == u"time") return pick({"10:32:07", "23:59:59.120", "00:00:01"});
        if (name == u"version")
            return number(0, 20) + u'.' + number(0, 30) + u'.' + number(0, 400) +
                   pick({"", "", "-rc1", ".1"});
        if (name == u"sha") return units(40, "0123456789abcdef");
        if (name == u"hex") return units(16, "0123456789abcdef");
        if (name == u"uuid")
            return QUuid(random_(), 4, 0x4a4a, 0x8a, 1, uchar(below(255)), 3, 4, 5, 6, 7)
                .toString(QUuid::WithoutBraces);
        if (name == u"price")
            return pick({"$", "€", "£"}) + number(1, 999) + u',' + digits(3) + u'.' + digits(2);
        if (name == u"order")
            return pick({"1024-", "4471-", "INV-2025-"}) + digits(6) + pick({"", "-01"});
        if (name == u"id") return digits(9 + below(2));
        if (name == u"number") return number(0, 900000);
        if (name == u"percent") return number(0, 99) + u'.' + digits(1) + u'%';
        if (name == u"coord")
            return number(-80, 80) + u'.' + digits(4) + QStringLiteral(", ") + number(-170, 170) +
                   u'.' + digits(4);
        if (name == u"port") return number(1024, 65535);
        if (name == u"css") return u'#' + units(6, "0123456789abcdef");
        if (name == u"unix") return QStringLiteral("17") + digits(8);
        if (name == u"unixms") return QStringLiteral("17") + digits(11);
        return name;
    }

    QString email() {
        return pick({"ann", "j.maier", "k_tanaka", "maria.ortiz+news", "ops-team", "x%y", "a1"}) +
               u'@' +
               pick({"example.com", "mail.example.org", "uni-koeln.de", "acme.co.uk", "corp.local",
                     "t-online.de", "startup.io", "sub.domain.example", "company.co.jp"});
    }

    QString card() {
        static const std::pair<const char*, int> kinds[] = {{"4", 16},   {"51", 16},   {"2221", 16},
                                                            {"37", 15},  {"6011", 16}, {"36", 14},
                                                            {"3530", 16}};
        const auto [prefix, length] = kinds[below(int(std::size(kinds)))];
        QString card = QString::fromLatin1(prefix);
        card += digits(length - 1 - int(card.size()));
        for (int check = 0; check < 10; ++check) {
            int sum = check;
            for (int i = 0; i < card.size(); ++i) {
                const int value = card[card.size() - 1 - i].digitValue();
                sum += i % 2 == 1 ? value : value > 4 ? 2 * value - 9 : 2 * value;
            }
            if (sum % 10 == 0) {
                card += QString::number(check);
                break;
            }
        }
        const QString separator = pick({"", " ", "-"});
        if (length == 15)
            return card.left(4) + separator + card.mid(4, 6) + separator + card.mid(10);
        if (length == 14)
            return card.left(4) + separator + card.mid(4, 6) + separator + card.mid(10);
        return card.left(4) + separator + card.mid(4, 4) + separator + card.mid(8, 4) + separator +
               card.mid(12);
    }

    QString ipv4() {
        const QString start = pick({"10.0.", "192.168.", "172.16.", "203.0.", "8.8.", "198.51."});
        return start + number(0, 255) + u'.' + number(1, 255);
    }

    QString ipv6() {
        const auto group = [this] { return units(1 + below(4), "0123456789abcdef"); };
        switch (below(6)) {
            case 0:
                return QStringLiteral("fe80::") + group() + u':' + group() + u':' + group() +
                       QStringLiteral(":1");
            case 1:
                return QStringLiteral("2001:db8::") + number(1, 9999);
            case 2:
                return QStringLiteral("::1");
            case 3:
                return QStringLiteral("::ffff:") + ipv4();
            case 4:
                return QStringLiteral("fe80::1%eth0");
            default:
                break;
        }
        QStringList groups;
        for (int i = 0; i < 7; ++i)
            groups << group();
        return QStringLiteral("2001:") + groups.join(u':');
    }

    QString key() {
        return pick({"sk_live_", "sk_test_", "pk_live_", "pk_test_", "sk_", "api_", "key_",
                     "token_", "secret_"}) +
               units(20 + below(20),
                     "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");
    }

    QString phone() {
        const QString area = pick({"415", "212", "650", "206", "312"});
        const QString exchange = pick({"555", "253", "682"});
        switch (below(9)) {
            case 0:
                return QStringLiteral("+1 (") + area + QStringLiteral(") ") + exchange + u'-' +
                       digits(4);
            case 1:
                return u'(' + area + QStringLiteral(") ") + exchange + u'-' + digits(4);
            case 2:
                return area + u'-' + exchange + u'-' + digits(4);
            case 3:
                return area + u'.' + exchange + u'.' + digits(4);
            case 4:
                return QStringLiteral("+49 30 ") + QStringLiteral("9018") + digits(4);
            case 5:
                return QStringLiteral("+44 20 7946 0") + digits(3);
            case 6:
                return QStringLiteral("+33 1 23 45 ") + digits(2) + u' ' + digits(2);
            case 7:
                return QStringLiteral("+81 3-1234-") + digits(4);
            default:
                return QStringLiteral("555-123-") + digits(4);
        }
    }

    std::mt19937 random_;
};

// The units of a line on their way through a recogniser.
struct Unit {
    QChar unit;
    int secret = -1;
    double confidence = 0.97;
    double width = characterWidth;
    bool startsBox = false;
};

class Misreading {
  public:
    Misreading(std::vector<Unit>& units, std::mt19937& random) : units_(units), random_(random) {}

    void apply() {
        switch (below(7)) {
            case 0:
                return spaceBehind(QStringLiteral("_"));
            case 1:
                return spaceBehind(QStringLiteral(".@:"));
            case 2:
                return loseUnderscore();
            case 3:
                return replace(QStringLiteral("01015"), QStringLiteral("OlQIS"));
            case 4:
                return replace(QStringLiteral(":"), QString(QChar(0xFF1A)));
            case 5:
                return splitWord();
            default:
                return spaceWithinNumber();
        }
    }

  private:
    int below(size_t end) { return int(random_() % unsigned(end)); }

    // A place of a secret that the condition holds for.
    template <typename Condition>
    std::optional<size_t> place(Condition holds) {
        std::vector<size_t> places;
        for (size_t i = 0; i + 1 < units_.size(); ++i) {
            if (units_[i].secret >= 0 && units_[i].secret == units_[i + 1].secret && holds(i))
                places.push_back(i);
        }
        if (places.empty()) return std::nullopt;
        return places[size_t(below(places.size()))];
    }

    void insertSpace(size_t index) {
        Unit space{u' ', units_[index].secret, 0.97, 2, false};
        units_.insert(units_.begin() + std::ptrdiff_t(index) + 1, space);
    }
    void spaceBehind(const QString& signs) {
        if (const auto found = place([&](size_t i) { return signs.contains(units_[i].unit); }))
            insertSpace(*found);
    }
    void spaceWithinNumber() {
        const auto found = place(
            [&](size_t i) { return units_[i].unit.isDigit() && units_[i + 1].unit.isDigit(); });
        if (found) insertSpace(*found);
    }
    void replace(const QString& from, const QString& to) {
        const auto found = place([&](size_t i) { return from.contains(units_[i].unit); });
        if (!found) return;
        units_[*found].unit = to[from.indexOf(units_[*found].unit)];
        // Now and then an engine is sure of what is wrong.
        units_[*found].confidence = below(4) == 0 ? 0.95 : 0.5;
    }
    // Of keys alone: "k tanaka@example.com" is two words to everybody.
    void loseUnderscore() {
        const bool isAddress = std::ranges::any_of(
            units_, [](const Unit& each) { return each.secret >= 0 && each.unit == u'@'; });
        if (!isAddress) replace(QStringLiteral("_"), QStringLiteral(" "));
    }
    void splitWord() {
        if (const auto found = place([](size_t) { return true; }))
            units_[*found + 1].startsBox = true;
    }

    std::vector<Unit>& units_;
    std::mt19937& random_;
};

OCRResult boxOf(const std::vector<Unit>& units, size_t start, size_t end, double left, double top) {
    RecognizedLine line;
    double sum = 0;
    for (size_t i = start; i < end; ++i) {
        line.text += units[i].unit;
        line.characters.emplace_back(left, top, units[i].width, lineHeight);
        line.characterConfidences.push_back(units[i].confidence);
        line.rect |= line.characters.back();
        left += units[i].width;
        sum += units[i].confidence;
    }
    line.confidence = sum / double(end - start);
    return {line.text, normalizedFromPixels(line.rect, corpusPicture), line.confidence, line};
}

}  // namespace

std::vector<CorpusLine> corpusLines(unsigned seed, int count) {
    Generator generator(seed);
    std::vector<CorpusLine> lines;
    for (int i = 0; i < count; ++i)
        lines.push_back(generator.line(i));
    return lines;
}

ReadLine readLine(const CorpusLine& line, double top, ReadingQuality quality,
                  std::mt19937& random) {
    std::vector<Unit> units;
    for (int i = 0; i < line.text.size(); ++i) {
        Unit unit{line.text[i]};
        for (int secret = 0; secret < int(line.secrets.size()); ++secret) {
            const TextRange& range = line.secrets[size_t(secret)].range;
            if (i >= range.start && i < range.end()) unit.secret = secret;
        }
        units.push_back(unit);
    }
    if (quality == ReadingQuality::faulty) {
        Misreading misreading(units, random);
        for (unsigned mistakes = 1 + random() % 2; mistakes > 0; --mistakes)
            misreading.apply();
    }
    ReadLine read;
    for (const CorpusLine::Secret& secret : line.secrets)
        read.secrets.push_back({secret.type, {}});
    double left = 20;
    double boxLeft = left;
    size_t start = 0;
    for (size_t i = 0; i <= units.size(); ++i) {
        const bool isEnd = i == units.size();
        if (isEnd || (units[i].startsBox && i > start)) {
            read.boxes.push_back(boxOf(units, start, i, boxLeft, top));
            if (isEnd) break;
            start = i;
            left += 3;
            boxLeft = left;
        }
        read.text += units[i].unit;
        if (units[i].secret >= 0 && units[i].unit != u' ') {
            read.secrets[size_t(units[i].secret)].characters.emplace_back(left, top, units[i].width,
                                                                          lineHeight);
        }
        left += units[i].width;
    }
    return read;
}

}  // namespace kestrio
