select 'a;b', "x;y" from t -- ; drop
/* ; */ where a=1;