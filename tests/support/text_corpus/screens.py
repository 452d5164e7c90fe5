"""Whole screens of known text: windows beside each other with different type, colours within lines, and controls."""
import random

import pages
from pages import CJK, Line, MONO, Page, SANS

MAIL = """Hello Martina,
thank you for the quick answer. I have moved the appointment to Thursday, 16 May,
and booked the small conference room on the second floor for two hours.
Could you bring the printed drawings and the samples (items 4 to 9)?
The supplier quoted EUR 1,430 plus VAT; that is 12 % below last year's price.
If the train is late, call the front desk and they will let you in.
Kind regards, Oliver Brandt
Head of Procurement | Building C, Room 2.118
-------- Original message --------
Subject: Re: Delivery of the spare parts (order 4500-8812)
As discussed, the crates leave the warehouse on Monday at noon.
Please note: signatures are required for each of the three pallets.
We cannot accept returns without the green slip attached.
Attached: offer_2024_rev3.pdf (1.2 MB), floor-plan.dwg (870 KB)""".split("\n")

SETTINGS = """General
Start at login
Show notifications while recording
Appearance: System
Default save location: Pictures/Screenshots
File name: capture-%Y-%m-%d
Play a sound after each capture
Keyboard shortcuts
Capture region: Ctrl + Shift + 4
Capture window: Ctrl + Shift + 5
Advanced
Keep originals for 30 days
Check for updates every week
Hardware acceleration (requires restart)
Reset all settings""".split("\n")

SOURCE = """import { useEffect, useState } from "react";
export function Counter({ start = 0, step = 1 }) {
  const [count, setCount] = useState(start);
  useEffect(() => {
    document.title = `Clicked ${count} times`;
  }, [count]);
  return <button onClick={() => setCount(count + step)}>{count}</button>;
}
// TODO: debounce, see ticket #3381
static int compare(const void *a, const void *b) {
    const struct entry *left = a, *right = b;
    return (left->key > right->key) - (left->key < right->key);
}
fn parse(input: &str) -> Result<u32, ParseError> {
    input.trim().parse::<u32>().map_err(ParseError::from)
}
CREATE INDEX idx_orders_customer ON orders (customer_id, created_at DESC);
kubectl get pods --namespace=staging -o wide
ENV NODE_ENV=production PORT=3000
COPY --from=build /app/dist ./dist
if [ -z "$1" ]; then echo "usage: $0 FILE" >&2; exit 2; fi
res = [x ** 2 for x in range(10) if x % 2 == 0]
try { await db.connect(); } catch (e) { log.error(e.message); }
template <typename T> T max(T a, T b) { return a < b ? b : a; }
body { margin: 0 auto; font: 16px/1.5 "Helvetica Neue", sans-serif; }
"timeout_ms": 2500, "retries": 3, "verbose": false""".split("\n")

LOG = """2024-05-14T08:13:22.417Z INFO  [worker-3] job 88123 finished in 482 ms
2024-05-14T08:13:22.988Z DEBUG [http] GET /v2/items?page=4&limit=50 200 12ms
2024-05-14T08:13:25.002Z WARN  [disk] /dev/sda1 is 91% full (18 GB left)
2024-05-14T08:13:31.640Z ERROR [auth] token expired for session 7f3a91c2
2024-05-14T08:13:31.641Z INFO  [auth] refresh requested by 10.0.4.17
CPU: 37.2%  MEM: 5.81G/15.5G  SWAP: 0K/2.00G  load: 1.42 0.98 0.77
warning: unused variable `index` [-Wunused-variable]
error[E0382]: borrow of moved value: `config`
Collecting requests==2.31.0 (from -r requirements.txt (line 7))
Unpacking libssl3:amd64 (3.0.11-1~deb12u2) over (3.0.9-1) ...
root@web01:/var/log# tail -n 20 nginx/error.log
Receiving objects: 100% (2417/2417), 1.09 MiB | 3.20 MiB/s, done.
PASS  src/__tests__/format.test.ts (5.118 s)
Tests: 2 failed, 148 passed, 150 total
eth0: inet 172.18.0.5/16 brd 172.18.255.255 mtu 1500""".split("\n")

CHINESE = """人工智能技术正在改变我们的生活方式。
请选择收货地址并确认支付方式。
该文件已被其他用户打开，是否以只读方式查看？
网络连接已断开，请检查您的网线或无线设置。
商品详情 用户评价 售后服务 推荐搭配
第三季度营业收入同比增长百分之十二点五。""".split("\n")

TAIWANESE = """請選擇送貨地址並確認付款方式。
網路連線已中斷，請檢查您的網路線或無線設定。
第三季營業收入較去年同期成長百分之十二點五。
此檔案已被其他使用者開啟，是否以唯讀方式檢視？
登入後即可查看訂單紀錄與優惠券。
氣象局表示，週末將有強烈颱風接近臺灣東部。""".split("\n")

NIHONGO = """ネットワークに接続できません。設定を確認してください。
お届け先とお支払い方法を選択してください。
このファイルは他のユーザーが開いています。
第三四半期の売上高は前年同期比で増加しました。
ログインすると注文履歴とクーポンを確認できます。
週末は大型の台風が東日本に近づく見込みです。""".split("\n")

SERIF = "'Noto Serif', 'DejaVu Serif'"
NOTO_MONO = "'Noto Sans Mono'"
TOKEN_COLORS = {"light": ["#d73a49", "#005cc5", "#6f42c1", "#22863a", "#6a737d"],
                "dark": ["#ff7b72", "#79c0ff", "#d2a8ff", "#7ee787", "#8b949e"]}


def _page(name, kind, source, face, size, colors, density, leading=1.55):
    page = Page(name, kind, [], size, face, *colors, density, 1100, 60 + round(len(source) * size * leading))
    page.lines = [Line(text, 30, 24 + round(index * size * leading)) for index, text in enumerate(source)]
    return page


def pages_of_screens(seed=1):
    """Pages that nothing was tuned on: other texts, other faces, all sizes."""
    random_ = random.Random(seed)
    kinds = [("mail", "English", MAIL, SERIF), ("settings", "English", SETTINGS, "'DejaVu Sans'"),
             ("source", "English", SOURCE, NOTO_MONO), ("log", "English", LOG, MONO),
             ("chinese", "zh-Hans", CHINESE, CJK["zh-Hans"]), ("taiwanese", "zh-Hant", TAIWANESE, CJK["zh-Hant"]),
             ("nihongo", "ja", NIHONGO, CJK["ja"])]
    for number, size in enumerate((11, 13, 15, 17, 22)):
        for kind_number, (name, kind, source, face) in enumerate(kinds):
            is_dark = (number + kind_number) % 2
            colors = random_.choice(pages.DARK if is_dark else pages.LIGHT)
            density = 1 + (number + kind_number // 2) % 2
            page = _page(f"{name}-{size}px-{'dark' if is_dark else 'light'}-{density}x", kind, source, face,
                         size, colors, density)
            page.token_colors = TOKEN_COLORS["dark" if is_dark else "light"] if name == "source" else None
            yield page


def dense(density=1, seed=5):
    """A full screen of small type in three columns: source, a terminal, an article."""
    random_ = random.Random(seed)
    page = Page(f"dense-{density}x", "English", [], 13, SANS, "#1b1b1f", "#ffffff", density, 1920, 1080)
    page.columns = [(0, 760, NOTO_MONO, "#c9d1d9", "#0d1117", pages.CODE + SOURCE),
                    (760, 600, MONO, "#24292f", "#f6f8fa", pages.TERMINAL + LOG),
                    (1360, 560, SANS, "#1b1b1f", "#ffffff", pages.PROSE + MAIL)]
    for left, width, _, _, _, source in page.columns:
        texts = [text[:round((width - 40) / 7.9)].rstrip() for text in source * 3]
        random_.shuffle(texts)
        page.lines += [Line(text, left + 16, 10 + index * 20)
                       for index, text in enumerate([text for text in texts if text.strip()][:53])]
    return page
