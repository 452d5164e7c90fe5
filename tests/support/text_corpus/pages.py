"""Pages of known text: what stands on them, in which face, size and colours, and where lines break."""
import dataclasses
import random
import re

PROSE = """The meeting starts at half past nine and should not take longer than forty minutes.
Please read the attached report before we talk about next year's budget.
Everything that was promised in the spring has been delivered, except for the new printer.
She asked whether the tickets could be refunded; the clerk said "only within 14 days".
A quick brown fox jumps over the lazy dog, while five boxing wizards look on.
Prices rose by 3.7 % in October, which is more than most people had expected.
Save your work often: the machine will restart tonight at 02:30 without asking again.
He wrote back within an hour (a record), and thanked us for our patience.
Shipping & handling is free for orders above $49.99 in the United States.
Nobody knows why the old bridge was closed, but the detour adds 12 km to the trip.
If you can read this line, the display works and the cable is plugged in properly.
Turn left at the lighthouse, follow the coast road and stop at the third gate.
The library opens at 8 a.m. and closes at 6 p.m., Monday to Friday.
Our team of eleven people answered 1,284 questions last month - thank you all!
Jasmine's flight was delayed again, so dinner had to wait until a quarter to ten.""".split("\n")

CODE = """for (size_t index = 0; index < items.size(); ++index) {
    total += items[index].price * items[index].count;
}
def read_lines(path: str) -> list[str]:
    with open(path, encoding="utf-8") as file:
        return [line.rstrip("\\n") for line in file]
const response = await fetch(`/api/users/${userId}`, { method: "GET" });
if (!response.ok) throw new Error("HTTP " + response.status);
#include <vector>
std::unique_ptr<Widget> make_widget(const Options& options);
SELECT name, COUNT(*) AS n FROM orders WHERE total >= 100 GROUP BY name;
export PATH="$HOME/.local/bin:$PATH"
git commit -m "Fix off-by-one error in parser" && git push
public static void main(String[] args) { run(args); }
let mut cache: HashMap<String, Vec<u8>> = HashMap::new();
return value != null ? value : default_value;
background-color: #1e1e2e; padding: 4px 12px;
x = (a + b) * (c - d) / 2.0  # mean of both
while True: time.sleep(0.5)
@dataclass(frozen=True)
class Point: x: float = 0.0; y: float = 0.0
printf("%5.2f %s\\n", value, unit);
npm run build -- --mode=production
assert len(result) == 42, f"unexpected: {result!r}"
""".strip().split("\n")

TERMINAL = """user@host:~/projects/demo$ ls -la
drwxr-xr-x  5 user user  4096 Mar 14 09:26 .
-rw-r--r--  1 user user 18231 Mar 14 09:21 README.md
-rwxr-xr-x  1 user user   912 Feb 28 17:03 build.sh
$ ping -c 3 example.org
64 bytes from 93.184.216.34: icmp_seq=1 ttl=56 time=11.6 ms
3 packets transmitted, 3 received, 0% packet loss
[12:45:07] INFO  server: listening on 0.0.0.0:8080
[12:45:09] WARN  cache: miss for key user_profile_77
[12:45:11] ERROR db: connection refused (errno 111)
Processing triggers for man-db (2.11.2-2) ...
$ docker ps --format "{{.Names}}"
make: *** [Makefile:23: all] Error 2
real    0m3.142s
$ grep -rn "TODO" src/ | wc -l
127
commit 9fceb02d0ae598e95dc970b74767f19372d61af8
Downloading linux-headers-6.1.0-13 (1,432 kB)
tcp        0      0 127.0.0.1:5432    0.0.0.0:*    LISTEN
  PID TTY          TIME CMD""".split("\n")

TABLE = [("Invoice", "Date", "Customer", "Amount", "State"),
         ("INV-10293", "2024-03-01", "Northwind Ltd.", "$1,250.00", "Paid"),
         ("INV-10294", "2024-03-04", "Blue Sky GmbH", "$340.75", "Open"),
         ("INV-10295", "2024-03-04", "Harbour & Sons", "$98.10", "Paid"),
         ("INV-10301", "2024-03-11", "Quartz Systems", "$12,400.00", "Overdue"),
         ("INV-10302", "2024-03-12", "Maple Foods", "$77.35", "Paid"),
         ("INV-10310", "2024-03-19", "Lighthouse Inc.", "$5,012.60", "Open")]

SIMPLIFIED = """会议将于明天上午九点在三楼会议室举行，请准时参加。
请在付款前仔细核对订单信息，如有疑问请联系客服。
系统更新完成后需要重新启动计算机才能生效。
今天的天气很好，我们去公园散步吧！
您的账户余额为1,280.50元，本月已消费356元。
这个软件可以帮助你快速整理照片和文件。
北京到上海的高速列车大约需要四个半小时。
文件已成功保存到“下载”文件夹中。
学习新的语言需要耐心，也需要每天坚持练习。
点击右上角的设置按钮，然后选择语言选项。
密码错误，请重新输入或者点击忘记密码。
本店营业时间：周一至周五 9:00-18:00""".split("\n")

TRADITIONAL = """會議將於明天上午九點在三樓會議室舉行，請準時參加。
請在付款前仔細核對訂單資訊，如有疑問請聯絡客服。
系統更新完成後需要重新啟動電腦才能生效。
今天的天氣很好，我們去公園散步吧！
您的帳戶餘額為1,280.50元，本月已消費356元。
這個軟體可以幫助你快速整理照片和檔案。
台北到高雄的高速鐵路大約需要一個半小時。
檔案已成功儲存到「下載」資料夾中。
學習新的語言需要耐心，也需要每天堅持練習。
點擊右上角的設定按鈕，然後選擇語言選項。
密碼錯誤，請重新輸入或者點擊忘記密碼。
他說這裡沒有什麼問題，讓我們繼續吧。""".split("\n")

JAPANESE = """会議は明日の午前九時から三階の会議室で行われます。
お支払いの前にご注文内容をよくご確認ください。
システムの更新が完了したら、コンピューターを再起動してください。
今日は天気がいいので、公園を散歩しましょう。
アカウントの残高は1,280円です。
このソフトを使えば、写真やファイルを簡単に整理できます。
東京から大阪まで新幹線で約二時間半かかります。
ファイルは「ダウンロード」フォルダーに保存されました。
新しい言語を学ぶには、毎日の練習が必要です。
右上の設定ボタンをクリックして、言語を選択してください。
パスワードが間違っています。もう一度入力してください。
営業時間：月曜日から金曜日 9:00～18:00""".split("\n")

SANS = "Inter, 'Noto Sans'"
MONO = "'DejaVu Sans Mono'"
CJK = {"zh-Hans": "'Noto Sans CJK SC'", "zh-Hant": "'Noto Sans CJK TC'", "ja": "'Noto Sans CJK JP'"}
LIGHT = [("#1b1b1f", "#ffffff"), ("#24292f", "#f6f8fa"), ("#555b66", "#ffffff"), ("#0a3069", "#eef4ff")]
DARK = [("#e6e6e6", "#1e1e1e"), ("#c9d1d9", "#0d1117"), ("#9aa4b2", "#16181d"), ("#a6e3a1", "#11111b")]


@dataclasses.dataclass
class Line:
    text: str
    left: int
    top: int


@dataclasses.dataclass
class Page:
    name: str
    kind: str        # English, zh-Hans, zh-Hant or ja
    lines: list      # as they are read: from the top, each from the left
    size: int        # pixels of the page of one line's type
    face: str
    ink: str
    ground: str
    density: int
    width: int = 1280
    height: int = 720
    token_colors: list = None  # for words of a line in turn
    columns: list = None       # left edge, width, face, ink, ground and what stands there


def _filled(source, random_, page, leading=1.6, columns=1):
    """Lines down the page, in columns."""
    step = round(page.size * leading)
    lines = []
    for column in range(columns):
        chosen = random_.sample(source, len(source))
        left = 32 + column * (page.width // columns)
        for index, text in enumerate(chosen):
            top = 28 + index * step
            if top + step > page.height - 20:
                break
            lines.append(Line(text, left, top))
    return lines


def _table(random_, page):
    step = round(page.size * 2.1)
    starts = [0, 0.2, 0.38, 0.6, 0.8]
    return [Line(cell, round(40 + start * (page.width - 80)), 40 + row * step)
            for row, cells in enumerate(TABLE) for start, cell in zip(starts, cells)
            if 40 + (row + 1) * step < page.height]


def pages(seed=1, sizes=(11, 12, 13, 14, 16, 18, 20, 24)):
    """Every kind of page in every size, light and dark, at density 1 and 2 in turn."""
    random_ = random.Random(seed)
    kinds = [("prose", "English", SANS, PROSE), ("code", "English", MONO, CODE),
             ("terminal", "English", MONO, TERMINAL), ("table", "English", SANS, None),
             ("hans", "zh-Hans", CJK["zh-Hans"], SIMPLIFIED),
             ("hant", "zh-Hant", CJK["zh-Hant"], TRADITIONAL), ("ja", "ja", CJK["ja"], JAPANESE)]
    for number, size in enumerate(sizes):
        for kind_number, (name, language, face, source) in enumerate(kinds):
            density = 1 + (number + kind_number) % 2
            is_dark = (number // 2 + kind_number) % 2
            ink, ground = random_.choice(DARK if is_dark else LIGHT)
            page = Page(f"{name}-{size}px-{'dark' if is_dark else 'light'}-{density}x", language, [],
                        size, face, ink, ground, density)
            page.lines = _table(random_, page) if source is None else _filled(source, random_, page)
            yield page


def samples():
    """A few small pages, one of each script, for tests that run often."""
    for name, language, face, source, size, colors, density in [
            ("code", "English", MONO, CODE[5:11], 13, DARK[1], 1),
            ("prose", "English", SANS, PROSE[:5], 15, LIGHT[0], 1),
            ("hans", "zh-Hans", CJK["zh-Hans"], SIMPLIFIED[:4], 16, LIGHT[1], 1),
            ("hant", "zh-Hant", CJK["zh-Hant"], TRADITIONAL[:4], 14, DARK[0], 2),
            ("ja", "ja", CJK["ja"], JAPANESE[:4], 16, LIGHT[0], 1)]:
        page = Page(name, language, [], size, face, *colors, density, 720, 32 + len(source) * 26)
        page.lines = [Line(text, 20, 16 + index * 26) for index, text in enumerate(source)]
        yield page


def _escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def _colored(text, colors):
    words = re.findall(r"\w+|\W+", text)
    return "".join(f'<span style="color:{colors[len(word) % len(colors)]}">{_escaped(word)}</span>'
                   for word in words)


def _style_of(page, line):
    for left, width, face, ink, _, _ in page.columns or []:
        if left <= line.left < left + width:
            return f";font-family:{face};color:{ink}"
    return ""


def html(page):
    lang = {"English": "en"}.get(page.kind, page.kind)
    grounds = "".join(f'<div style="left:{left}px;top:0;width:{width}px;height:100%;background:{ground}"></div>'
                      for left, width, _, _, ground, _ in page.columns or [])
    spans = "".join(f'<div style="left:{line.left}px;top:{line.top}px{_style_of(page, line)}">'
                    f"{_colored(line.text, page.token_colors) if page.token_colors else _escaped(line.text)}</div>"
                    for line in page.lines)
    return (f'<!doctype html><html lang="{lang}"><meta charset="utf-8"><style>'
            f"html,body{{height:100%}}body{{margin:0;background:{page.ground};color:{page.ink};overflow:hidden;"
            f"font:{page.size}px/1.4 {page.face}}}"
            f"div{{position:absolute;white-space:pre}}</style>{grounds}{spans}</html>")
