<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he_IL">
<context>
    <name>ProgramOptions</name>
    <message>
        <source>the device root</source>
        <translation>תיקיית השורש של המכשיר</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>תיקייה</translation>
    </message>
    <message>
        <source>show this help</source>
        <translation>הצגת עזרה זו</translation>
    </message>
    <message>
        <source>show the version</source>
        <translation>הצגת הגרסה</translation>
    </message>
    <message>
        <source>unknown option &apos;%1%2&apos;</source>
        <translation>אפשרות לא מוכרת &apos;%1%2&apos;</translation>
    </message>
    <message>
        <source>%1 needs a %2</source>
        <translation>%1 דורש ערך: %2</translation>
    </message>
    <message>
        <source>--root needs a folder</source>
        <translation>--root דורש תיקייה</translation>
    </message>
    <message>
        <source>%1: %2 (see &apos;%1 --help&apos;)
</source>
        <translation>%1: %2 (ראו &apos;%1 --help&apos;)
</translation>
    </message>
    <message>
        <source>
The device root is --root DIR, else $POMWICK_ROOT, else %1.
</source>
        <translation>
תיקיית השורש של המכשיר היא --root תיקייה, אחרת $POMWICK_ROOT, אחרת %1.
</translation>
    </message>
    <message>
        <source>(none: no home folder)</source>
        <translation>(אין: אין תיקיית בית)</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>The settings window of Pomwick, with its live badge preview. One window per device root: a second start brings the open one forward.</source>
        <translation>חלון ההגדרות של Pomwick, עם תצוגה מקדימה חיה של התג. חלון אחד לכל תיקיית שורש של מכשיר: הפעלה נוספת מביאה את החלון הפתוח לחזית.</translation>
    </message>
    <message>
        <source>stay on the list of bundles</source>
        <translation>להישאר ברשימת החבילות</translation>
    </message>
    <message>
        <source>load the bundle, open its page, exit 0 (or 1 when it fails)</source>
        <translation>לטעון את החבילה, לפתוח את הדף שלה ולצאת עם 0 (או 1 במקרה של כישלון)</translation>
    </message>
    <message>
        <source>unexpected argument &apos;%1&apos;</source>
        <translation>ארגומנט לא צפוי &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>הגדרות</translation>
    </message>
    <message>
        <source>%1 is not a preference bundle</source>
        <translation>%1 אינה חבילת הגדרות</translation>
    </message>
    <message>
        <source>The home-screen side of Pomwick&apos;s preview: serves com.velquor.pomwick on the session bus and draws the badge background on &quot;saveBadgeImages&quot;. The bus starts it on demand.</source>
        <translation>הצד של מסך הבית בתצוגה המקדימה של Pomwick: משרת את com.velquor.pomwick באפיק ההפעלה ומצייר את רקע התג בעת &quot;saveBadgeImages&quot;. האפיק מפעיל אותו לפי הצורך.</translation>
    </message>
    <message>
        <source>the icon side in points it reports (60)</source>
        <translation>אורך צלע הסמל בנקודות שהוא מדווח (60)</translation>
    </message>
    <message>
        <source>number</source>
        <translation>מספר</translation>
    </message>
    <message>
        <source>--icon-size needs a number of points between 0 and 1024, not &apos;%1&apos;</source>
        <translation>--icon-size דורש מספר נקודות בין 0 ל־1024, לא &apos;%1&apos;</translation>
    </message>
</context>
<context>
    <name>pomwick::ActivityIndicatorView</name>
    <message>
        <source>In progress</source>
        <translation>בתהליך</translation>
    </message>
</context>
<context>
    <name>pomwick::BadgePositionViewController</name>
    <message>
        <source>Set Position</source>
        <translation>קביעת מיקום</translation>
    </message>
    <message>
        <source>Drag the badge, or move it with the arrow keys.</source>
        <translation>גררו את התג או הזיזו אותו בעזרת מקשי החצים.</translation>
    </message>
    <message>
        <source>Icon area</source>
        <translation>אזור הסמל</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>סמל</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>תג</translation>
    </message>
    <message>
        <source>Drag the badge bubble 
to your desired location.</source>
        <translation>גררו את בועת התג 
למיקום הרצוי.</translation>
    </message>
</context>
<context>
    <name>pomwick::ColorDescription</name>
    <message>
        <source>red %1 green %2 blue %3</source>
        <translation>אדום %1 ירוק %2 כחול %3</translation>
    </message>
</context>
<context>
    <name>pomwick::DQFontPicker</name>
    <message>
        <source>Font</source>
        <translation>גופן</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>גודל</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>צבע</translation>
    </message>
</context>
<context>
    <name>pomwick::FeedbackMailComposer</name>
    <message>
        <source>Mail</source>
        <translation>דואר</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>ביטול</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>שליחה</translation>
    </message>
    <message>
        <source>New Message</source>
        <translation>הודעה חדשה</translation>
    </message>
    <message>
        <source>Sending</source>
        <translation>שולח</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>אל:</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>נושא:</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>הודעה</translation>
    </message>
    <message>
        <source>Not a valid address</source>
        <translation>כתובת לא תקינה</translation>
    </message>
    <message>
        <source>%1; the message was kept in %2</source>
        <translation>%1; ההודעה נשמרה ב־%2</translation>
    </message>
    <message>
        <source>%1; the message could not be kept: %2</source>
        <translation>%1; לא ניתן היה לשמור את ההודעה: %2</translation>
    </message>
    <message>
        <source>Draft</source>
        <translation>טיוטה</translation>
    </message>
    <message>
        <source>Save Draft</source>
        <translation>שמירת טיוטה</translation>
    </message>
    <message>
        <source>Delete Draft</source>
        <translation>מחיקת טיוטה</translation>
    </message>
    <message>
        <source>Draft saved to %1</source>
        <translation>הטיוטה נשמרה ב־%1</translation>
    </message>
</context>
<context>
    <name>pomwick::FeedbackMailFlow</name>
    <message>
        <source>Oops!</source>
        <translation>אופס!</translation>
    </message>
    <message>
        <source>Your device cannot send emails!</source>
        <translation>המכשיר שלך לא יכול לשלוח דואר!</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>אישור</translation>
    </message>
    <message>
        <source>My Feedback - Pomwick</source>
        <translation>המשוב שלי - Pomwick</translation>
    </message>
    <message>
        <source>Sent from Pomwick Tweak</source>
        <translation>נשלח מ־Pomwick Tweak</translation>
    </message>
    <message>
        <source>Message Saved!</source>
        <translation>ההודעה נשמרה!</translation>
    </message>
    <message>
        <source>Message Sent!</source>
        <translation>ההודעה נשלחה!</translation>
    </message>
    <message>
        <source>An Error Occurred!</source>
        <translation>אירעה שגיאה!</translation>
    </message>
</context>
<context>
    <name>pomwick::FontPickerSheet</name>
    <message>
        <source>Close font sheet</source>
        <translation>סגירת בחירת הגופן</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>סיום</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>גופן</translation>
    </message>
</context>
<context>
    <name>pomwick::MailDrafts</name>
    <message>
        <source>cannot create %1</source>
        <translation>לא ניתן ליצור את %1</translation>
    </message>
    <message>
        <source>%1 is not a folder of this user</source>
        <translation>%1 אינה תיקייה של משתמש זה</translation>
    </message>
    <message>
        <source>cannot make %1 private</source>
        <translation>לא ניתן להפוך את %1 לפרטית</translation>
    </message>
    <message>
        <source>cannot write the draft %1: %2</source>
        <translation>לא ניתן לכתוב את הטיוטה %1: %2</translation>
    </message>
</context>
<context>
    <name>pomwick::PomwickPreferencesViewController</name>
    <message>
        <source>Ok</source>
        <translation>אישור</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>גופן</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>ביטול פעולה</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>ביצוע חוזר</translation>
    </message>
    <message>
        <source>Defaults restored</source>
        <translation>ברירות המחדל שוחזרו</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>מיקום</translation>
    </message>
    <message>
        <source>Respringing…</source>
        <translation>מבצע ריספרינג…</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>שחזור ברירות המחדל</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>צבע</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>מופעל</translation>
    </message>
    <message>
        <source>Hide/Show</source>
        <translation>הסתרה/הצגה</translation>
    </message>
    <message>
        <source>Alpha: %1%</source>
        <translation>אטימות: %1%</translation>
    </message>
    <message>
        <source>Border Width</source>
        <translation>עובי מסגרת</translation>
    </message>
    <message>
        <source>Alpha</source>
        <translation>אטימות</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>טיפ</translation>
    </message>
    <message>
        <source>Substitute the &quot;@&quot; symbol for the badge number. For example, typing the text &quot;Alert:@&quot; will display &quot;Alert:1&quot; if the badge number is 1.</source>
        <translation>הסימן &quot;@&quot; מוחלף במספר שבתג. לדוגמה, הטקסט &quot;Alert:@&quot; יוצג כ־&quot;Alert:1&quot; כשמספר התג הוא 1.</translation>
    </message>
    <message>
        <source>Badge Text</source>
        <translation>טקסט התג</translation>
    </message>
    <message>
        <source>Respring</source>
        <translation>ריספרינג</translation>
    </message>
</context>
<context>
    <name>pomwick::PreferencesRows</name>
    <message>
        <source>Enabled</source>
        <translation>מופעל</translation>
    </message>
    <message>
        <source>Badge</source>
        <translation>תג</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>איפוס</translation>
    </message>
    <message>
        <source>Contact Us / Donate</source>
        <translation>יצירת קשר / תרומה</translation>
    </message>
    <message>
        <source>Crafted with care by the Pomwick developers, 2026
Pomwick v%1</source>
        <translation>נוצר בקפידה על ידי מפתחי Pomwick, 2026
Pomwick v%1</translation>
    </message>
    <message>
        <source>Font: %1</source>
        <translation>גופן: %1</translation>
    </message>
    <message>
        <source>Background Color:</source>
        <translation>צבע רקע:</translation>
    </message>
    <message>
        <source>Position: %1%, %2%</source>
        <translation>מיקום: %1%, %2%</translation>
    </message>
    <message>
        <source>Border Color:</source>
        <translation>צבע מסגרת:</translation>
    </message>
    <message>
        <source>Border Width:</source>
        <translation>עובי מסגרת:</translation>
    </message>
    <message>
        <source>Alpha: %1%</source>
        <translation>אטימות: %1%</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>שחזור ברירות המחדל</translation>
    </message>
    <message>
        <source>Contact Us</source>
        <translation>צרו קשר</translation>
    </message>
    <message>
        <source>Follow on Twitter</source>
        <translation>עקבו בטוויטר</translation>
    </message>
    <message>
        <source>View My Other Tweaks</source>
        <translation>הטוויקים האחרים שלי</translation>
    </message>
    <message>
        <source>Donate</source>
        <translation>תרומה</translation>
    </message>
    <message>
        <source>Enabled:</source>
        <translation>מופעל:</translation>
    </message>
    <message>
        <source>Visibility:</source>
        <translation>נראות:</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>הסתר</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>הצג</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>נראות</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>טקסט:</translation>
    </message>
    <message>
        <source>Badge Text</source>
        <translation>טקסט התג</translation>
    </message>
    <message>
        <source>Badge text</source>
        <translation>טקסט התג</translation>
    </message>
    <message>
        <source>Tip</source>
        <translation>טיפ</translation>
    </message>
</context>
<context>
    <name>pomwick::PreviewHeader</name>
    <message>
        <source>Badge Preview</source>
        <translation>תצוגה מקדימה של התג</translation>
    </message>
    <message>
        <source>Badge preview: a sample icon without a badge</source>
        <translation>תצוגה מקדימה של התג: סמל לדוגמה ללא תג</translation>
    </message>
    <message>
        <source>Badge preview: %1 on a sample icon</source>
        <translation>תצוגה מקדימה של התג: %1 על סמל לדוגמה</translation>
    </message>
    <message>
        <source>Preview unavailable — the badge renderer is not running. Respring to start it.</source>
        <translation>התצוגה המקדימה אינה זמינה — מצייר התגים אינו פועל. בצעו ריספרינג כדי להפעיל אותו.</translation>
    </message>
</context>
<context>
    <name>pomwick::ProgressIndicatorView</name>
    <message>
        <source>Progress</source>
        <translation>התקדמות</translation>
    </message>
</context>
<context>
    <name>pomwick::RowEditors</name>
    <message>
        <source>Background colors</source>
        <translation>צבעי רקע</translation>
    </message>
    <message>
        <source>Border colors</source>
        <translation>צבעי מסגרת</translation>
    </message>
    <message>
        <source>Select Color</source>
        <translation>בחירת צבע</translation>
    </message>
</context>
<context>
    <name>pomwick::SendmailDelivery</name>
    <message>
        <source>sendmail did not finish in time</source>
        <translation>sendmail לא הסתיים בזמן</translation>
    </message>
    <message>
        <source>sendmail stopped: %1</source>
        <translation>sendmail נעצר: %1</translation>
    </message>
    <message>
        <source>sendmail exited with status %1</source>
        <translation>sendmail הסתיים עם קוד יציאה %1</translation>
    </message>
    <message>
        <source>sendmail could not start: %1</source>
        <translation>לא ניתן היה להפעיל את sendmail: %1</translation>
    </message>
    <message>
        <source>no sendmail program is installed</source>
        <translation>לא מותקנת תוכנת sendmail</translation>
    </message>
</context>
<context>
    <name>pomwick::SettingsHistory</name>
    <message>
        <source>Change by another program</source>
        <translation>שינוי על ידי תוכנה אחרת</translation>
    </message>
</context>
<context>
    <name>pomwick::SettingsListController</name>
    <message>
        <source>Settings</source>
        <translation>הגדרות</translation>
    </message>
    <message>
        <source>The settings bundle could not be loaded:
%1</source>
        <translation>לא ניתן היה לטעון את חבילת ההגדרות:
%1</translation>
    </message>
    <message>
        <source>Tweaks</source>
        <translation>טוויקים</translation>
    </message>
</context>
<context>
    <name>pomwick::Switch</name>
    <message>
        <source>on</source>
        <translation>מופעל</translation>
    </message>
    <message>
        <source>off</source>
        <translation>כבוי</translation>
    </message>
</context>
<context>
    <name>pomwick::UndoNotice</name>
    <message>
        <source>Undo</source>
        <translation>בטל</translation>
    </message>
</context>
</TS>
