#pragma once

// The words of which the benchmarks' schedules make their texts: titles of an action, a person
// and sometimes a topic, places, and memo lines.
#include <vector>

namespace sched {

using Words = std::vector<const char*>;

struct Vocabulary {
  Words actions;
  Words people;
  Words topics;
  Words places;
  Words memoLines;
};

inline const Vocabulary kEnglishWords = {
    .actions = {"Meeting with", "Call", "Lunch with", "Review with", "Visit", "Pick up",
                "Interview", "Dinner with", "Coffee with", "Workshop with"},
    .people = {"Anna", "Bob", "Jürgen Müller", "the team", "Zoë", "François", "the landlord",
               "Dr. Okafor", "Grandma", "the accountant", "Søren", "the school board"},
    .topics = {"budget 2025", "release plan", "quarterly figures", "the new office", "holiday rota",
               "contract renewal", "kitchen refit", "tax return", "website – second draft",
               "“Project Alder”"},
    .places = {"Room 214", "Café Zentral", "Main Street 12, 2nd floor", "Town hall",
               "Hôtel de Ville, salle B", "Online", "Dentist, Oak Road 5", "Gym",
               "Station car park", "Conference room “Harbour”", "Küche", "Office"},
    .memoLines =
        {
            "Bring the printed notes and the laptop charger.",
            "Ask about the budget for next year.",
            "Parking is behind the building, entrance from the side street.",
            "Agenda: 1. minutes 2. figures 3. any other business",
            "Call ahead if late: 0171 555 0192",
            "Remember the receipts (about 240 €).",
            "Door code 4711, third floor, ring twice.",
            "Take the umbrella – rain is forecast.",
            "Prepare two questions on the schedule.",
            "Send the slides to everyone afterwards.",
            "Pay the invoice before the end of the month.",
            "Follow-up from last week’s call.",
        },
};

// Japanese texts: almost every character takes two bytes in the organiser's code page.
inline const Vocabulary kJapaneseWords = {
    .actions = {"打ち合わせ", "電話", "昼食", "レビュー", "訪問", "迎え", "面接", "夕食", "お茶",
                "研修"},
    .people = {"田中さん", "鈴木部長", "チーム全員", "佐藤先生", "祖母", "経理担当", "山本さん",
               "大家さん", "学校の理事会", "高橋さん", "渡辺さん", "小林さん"},
    .topics = {"来年度の予算", "リリース計画", "四半期の数字", "新しい事務所", "休暇の当番",
               "契約更新", "台所の改装", "確定申告", "ウェブサイト第二稿", "「アルダー計画」"},
    .places = {"２１４号室（本館）", "カフェ中央 二階", "本町１２番地２階", "市役所 第二庁舎",
               "会議室Ｂ", "オンライン", "歯医者（樫通り５）", "ジム", "駅前駐車場", "会議室「港」",
               "台所", "事務所"},
    .memoLines = {"印刷した資料とノートパソコンの充電器を忘れずに持参する。",
                  "来年の予算について部長に質問する。",
                  "駐車場は建物の裏側、入口は右の脇道から入る。",
                  "議題：１．議事録　２．数字　３．その他",
                  "遅れる場合は事前に電話する：０１７１－５５５－０１９２",
                  "領収書を忘れずに（約２４０００円）。",
                  "ドアの暗証番号は４７１１、三階、二回鳴らす。", "傘を持っていく、雨の予報。",
                  "予定について質問を二つ用意する。", "終了後にスライドを全員に送る。",
                  "月末までに請求書を支払う。", "先週の電話の続き、議事録を確認しておく。"},
};

}  // namespace sched
