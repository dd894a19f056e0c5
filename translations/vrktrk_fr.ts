<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name>CWinMain</name>
    <message>
        <source>Raw GPS output file (*.txt)</source>
        <translation>Données GPS complètes (*.txt)</translation>
    </message>
    <message>
        <source>GPS Exchange Format (*.gpx)</source>
        <translation>Format GPX (*.gpx)</translation>
    </message>
    <message>
        <source>OziExplorer track (*.plt)</source>
        <translation>Trace OziExplorer (*.plt)</translation>
    </message>
    <message>
        <source>GoogleEarth track (*.kml)</source>
        <translation>Trace Google Earth (*.kml)</translation>
    </message>
</context>
<context>
    <name>Dialog</name>
    <message>
        <source>Извлечение данных GPS</source>
        <translation>Extraction des données GPS</translation>
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
        <translation>Choisissez ce format pour utiliser les données GPS dans OziExplorer</translation>
    </message>
    <message>
        <source>OziExplorer track (.plt)</source>
        <translation>Trace OziExplorer (.plt)</translation>
    </message>
    <message>
        <source>В выходной файл будут записаны все сообщения полученные от пиёмника GPS, содержащиеся в архиве.</source>
        <translation>Le fichier de sortie contiendra tous les messages du récepteur GPS présents dans l’archive.</translation>
    </message>
    <message>
        <source>Полные данные GPS (.txt)</source>
        <translation>Données GPS complètes (.txt)</translation>
    </message>
    <message>
        <source>Формат, специально предназначенный для обмена GPS данными между программами.&lt;br&gt;Совместим с наибольшим числом программ.</source>
        <translation>Un format conçu pour échanger des données GPS entre logiciels.&lt;br&gt;C’est le format le plus largement pris en charge.</translation>
    </message>
    <message>
        <source>GPS Exchange Format (.gpx)</source>
        <translation>Format GPX (.gpx)</translation>
    </message>
    <message>
        <source>Выберите этот формат для просмотра полученного GPS трека в программе GoogleEarth или на сайте https://maps.google.com/</source>
        <translation>Choisissez ce format pour afficher la trace GPS dans Google Earth ou sur https://maps.google.com/</translation>
    </message>
    <message>
        <source>GoogleEarth KML (.kml)</source>
        <translation>KML Google Earth (.kml)</translation>
    </message>
    <message>
        <source>&lt;b&gt;Выберите формат GPS трека для сохранения&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Необходимый формат сохранения зависит от используемого Вами ПО. Пожалуйста проверьте допустимые для Вашего ПО  форматы в его инструкции.&lt;/font&gt;</source>
        <translation>&lt;b&gt;Choisissez un format pour la trace GPS&lt;/b&gt;&lt;br&gt;&lt;br&gt;&lt;font size=-1 color=#c0c0ff&gt;Le format à choisir dépend du logiciel que vous utilisez. Consultez son manuel pour connaître les formats qu’il accepte.&lt;/font&gt;</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>VRK3 files (*.vrk3)</source>
        <translation>Fichiers VRK3 (*.vrk3)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>File %s not found. Please reinstall the application.</source>
        <translation>Le fichier %s est introuvable. Veuillez réinstaller l’application.</translation>
    </message>
</context>
<context>
    <name>ZelWindowTitle</name>
    <message>
        <source>Свернуть</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Развернуть</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Закрыть</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Восстановить</source>
        <translation>Restaurer</translation>
    </message>
</context>
</TS>
