<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Tüm GPS verileri (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>GPX biçimi (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>OziExplorer izi (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Google Earth izi (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>GPS verileri çıkarılıyor</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>VrkTrk</source>
        <translation>VrkTrk</translation>
    </message>
    <message>
        <source>Выберите этот вормат для передачи данных GPS в программу OziExplorer</source>
        <translation>GPS verilerini OziExplorer programında kullanmak için bu biçimi seçin</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>OziExplorer izi (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>Çıktı dosyası, GPS alıcısının arşivde bulunan tüm iletilerini içerecektir.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Tüm GPS verileri (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>GPS verilerini programlar arasında aktarmak için tasarlanmış bir biçim.&lt;br&gt;En çok program tarafından desteklenen biçimdir.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>GPX biçimi (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>GPS izini Google Earth’te veya https://maps.google.com/ adresinde görüntülemek için bu biçimi seçin</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>Google Earth KML (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;GPS izi için bir biçim seçin&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Doğru biçim, kullandığınız yazılıma bağlıdır. Hangi biçimleri okuyabildiğini öğrenmek için kılavuzuna bakın.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Aç</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>VRK3 dosyaları (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Kaydet</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>%s dosyası bulunamadı. Lütfen uygulamayı yeniden kurun.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Küçült</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Büyüt</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Kapat</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Geri Yükle</translation>
    </message>
</context>
</TS>
